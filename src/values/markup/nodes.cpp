#include "values/markup/nodes.h"

#include "values/markup/escape.h"
#include "values/markup/tokens.h"

#include <algorithm>

namespace brixen::lyr::gen {
namespace {

constexpr ScannedNode kNoNode{kMarkupNone, 0};

ScannedNode ScanText(const MarkupSpan& text, std::ptrdiff_t at) {
    const std::ptrdiff_t inked = text.SkipBlanks(at);
    if (inked >= text.end || text[inked] == '<') return {kMarkupWhiteSpace, inked};
    return {kMarkupText, text.Find('<', inked)};
}

// A node that ends with `fence` and `>`. Intentional: the search begins one byte after the `<`, so that the
// fences may overlap.
ScannedNode ScanFenced(const MarkupSpan& text, std::ptrdiff_t at, int kind, std::string_view fence) {
    const std::ptrdiff_t from = at + 2;
    const std::ptrdiff_t fenceLength = std::ssize(fence);
    for (std::ptrdiff_t right = text.Find('>', from); right < text.end; right = text.Find('>', right + 1)) {
        const std::ptrdiff_t left = right - fenceLength;
        if (left >= from && text.Between(left, right) == fence) return {kind, right + 1};
    }
    return kNoNode;
}

std::ptrdiff_t DepthChange(std::string_view token) {
    return std::count(token.begin(), token.end(), '[') - std::count(token.begin(), token.end(), ']');
}

ScannedNode ScanDocumentType(const MarkupSpan& text, std::ptrdiff_t at) {
    MarkupTokenReader reader(text, at + 1);
    MarkupToken token;
    std::ptrdiff_t depth = 0;
    while (reader.Next(token)) {
        if (token.quoted) continue;
        if (reader.Is(token, '>') && depth == 0) return {kMarkupDocumentType, token.end};
        depth += DepthChange(reader.TextOf(token));
    }
    return kNoNode;
}

ScannedNode ScanDeclaration(const MarkupSpan& text, std::ptrdiff_t at) {
    switch (text[at + 2]) {
    case '[': return ScanFenced(text, at, kMarkupCData, "]]");
    case '-': return ScanFenced(text, at, kMarkupComment, "--");
    default: return ScanDocumentType(text, at);
    }
}

std::string Fenced(std::string_view begin, std::string_view content, std::string_view end) {
    return std::string(begin).append(content).append(end);
}

std::string_view Inside(std::string_view node, std::size_t head, std::size_t tail) {
    return node.size() < head + tail ? std::string_view() : node.substr(head, node.size() - head - tail);
}

} // namespace

ScannedNode ScanNode(std::string_view text, std::ptrdiff_t at) {
    const MarkupSpan span(text);
    if (at >= span.end) return kNoNode;
    if (span[at] != '<') return ScanText(span, at);
    if (span.end - at <= 2) return kNoNode;
    switch (span[at + 1]) {
    case '?': return ScanFenced(span, at, kMarkupProcessingInstruction, "?");
    case '!': return ScanDeclaration(span, at);
    case '/': return kNoNode;
    default: return {kMarkupElement, at};
    }
}

bool HoldsNodesOnly(std::string_view text) {
    for (std::ptrdiff_t at = 0; at < std::ssize(text);) {
        const ScannedNode node = ScanNode(text, at);
        if (!node.IsWhole()) return false;
        at = node.end;
    }
    return true;
}

std::string NodeMarkup(int kind, std::string_view content) {
    switch (kind) {
    case kMarkupText:
    case kMarkupWhiteSpace: return EscapeMarkup(content, false);
    case kMarkupCData: return Fenced(kCDataBegin, content, kCDataEnd);
    case kMarkupProcessingInstruction: return Fenced("<?", content, "?>");
    case kMarkupComment: return Fenced("<!--", content, "-->");
    // Its content is read with the fences, and may be set with them.
    case kMarkupDocumentType:
        return content.starts_with("<!") ? std::string(content) : Fenced("<!", content, ">");
    default: return {};
    }
}

std::string_view NodeContent(int kind, std::string_view node) {
    switch (kind) {
    case kMarkupComment: return Inside(node, 4, 3);
    case kMarkupProcessingInstruction: return Inside(node, 2, 2);
    case kMarkupCData: return Inside(node, kCDataBegin.size(), kCDataEnd.size());
    default: return node;
    }
}

} // namespace brixen::lyr::gen
