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

// A node that ends with `fence` and `>`. The search begins right behind the `<` and one more byte, so that
// the fences may overlap.
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

} // namespace

ScannedNode ScanNode(const MarkupSpan& text, std::ptrdiff_t at) {
    if (at >= text.end) return kNoNode;
    if (text[at] != '<') return ScanText(text, at);
    if (text.end - at <= 2) return kNoNode;
    switch (text[at + 1]) {
    case '?': return ScanFenced(text, at, kMarkupProcessingInstruction, "?");
    case '!': return ScanDeclaration(text, at);
    case '/': return kNoNode;
    default: return {kMarkupElement, at};
    }
}

bool NameMatches(std::string_view token, std::string_view name) {
    if (!name.starts_with(token)) return false;
    return token.size() == name.size() || (ClassOf(name[token.size()]) & kNameEndByte) != 0;
}

std::string_view TagNameAt(const MarkupSpan& text, std::ptrdiff_t left) {
    MarkupTokenReader reader(text, left + 1);
    MarkupToken token;
    return reader.Next(token) ? reader.TextOf(token) : std::string_view();
}

bool IsPlainName(std::string_view name) {
    if (name.empty() || (ClassOf(name.front()) & kQuoteByte) != 0) return false;
    return HasNone(name, kBlankByte | kDelimiterByte);
}

} // namespace brixen::lyr::gen
