#include "values/markup/tree.h"

#include "values/markup/nodes.h"
#include "values/markup/parser.h"
#include "values/markup/tokens.h"

#include <utility>

namespace brixen::lyr::gen {
namespace {

constexpr std::size_t kBytesPerEntry = 64; // of a text whose elements are not known yet
constexpr std::int32_t kLeastEntries = 8;

} // namespace

void swap(MarkupTree& left, MarkupTree& right) noexcept {
    left.text.swap(right.text);
    swap(left.table, right.table);
}

bool MarkupTree::Parse(std::string newText, std::string& error) {
    text = std::move(newText);
    table.Clear();
    const bool tooLong = text.size() > kLongestMarkup;
    table.Grow(tooLong ? 0 : static_cast<std::int32_t>(text.size() / kBytesPerEntry) + kLeastEntries);
    if (text.empty()) return false;
    if (tooLong) error = "Element tag not found";
    const std::int32_t top = tooLong ? 0 : ParseElement(text, table, 0, error);
    if (top <= 0) return false;
    // The parser's trace of the root: the last `<` that was looked for under it.
    table[0].endTagLeft = table[top].startTagLeft;
    table[0].firstChild = top;
    return true;
}

// A removed element keeps its subtree, whose parents lead up to it.
bool MarkupTree::IsLive(std::int32_t element) const {
    while (element > 0) element = table[element].parent;
    return element != ElementTable::kRemoved;
}

std::int32_t MarkupTree::LastChild(std::int32_t parent) const {
    std::int32_t element = FirstChild(parent);
    while (element != 0 && table[element].nextSibling != 0) element = table[element].nextSibling;
    return element;
}

std::int32_t MarkupTree::SiblingBefore(std::int32_t element) const {
    std::int32_t sibling = table[table[element].parent].firstChild;
    if (sibling == element) return 0;
    while (table[sibling].nextSibling != element) sibling = table[sibling].nextSibling;
    return sibling;
}

std::string_view MarkupTree::NameOf(std::int32_t element) const {
    return TagNameAt(MarkupSpan(text), table[element].startTagLeft);
}

std::int32_t MarkupTree::Find(std::int32_t parent, std::int32_t start, std::string_view path) const {
    std::int32_t element = NextChild(parent, start);
    if (path.starts_with('/')) {
        element = FirstChild(0);
        path.remove_prefix(1);
    }
    if (path.empty()) return element;
    while (element != 0) {
        const bool any = path.starts_with('*');
        const std::string_view name = any ? path.substr(0, 1) : NameOf(element);
        if (!any && !NameMatches(name, path)) {
            element = table[element].nextSibling;
            continue;
        }
        if (!path.substr(name.size()).starts_with('/')) return element;
        // Intentional: there is no way back. A failure below does not try a later sibling.
        path.remove_prefix(name.size() + 1);
        element = table[element].firstChild;
    }
    return 0;
}

std::ptrdiff_t MarkupTree::SkipLineEnd(std::ptrdiff_t offset) const {
    const MarkupSpan span(text);
    const std::ptrdiff_t inked = span.SkipBlanks(offset);
    return inked >= span.end || span[inked] == '<' ? inked : offset;
}

MarkupTree::Gap MarkupTree::GapUnder(std::int32_t parent, std::int32_t current, bool after) const {
    if (current == 0) {
        return after ? Gap{parent, LastChild(parent), ContentEnd(parent)}
                     : Gap{parent, 0, SkipLineEnd(ContentBegin(parent))};
    }
    return after ? Gap{parent, current, SkipLineEnd(std::ptrdiff_t{table[current].endTagRight} + 1)}
                 : Gap{parent, SiblingBefore(current), table[current].startTagLeft};
}

// Whether a parse would find an element put there. Without a root element yet, the text before the gap may
// hold anything.
bool MarkupTree::IsReachable(const Gap& gap) const {
    return gap.parent != 0 || FirstChild(0) != 0 || HoldsNodesOnly(Between(0, gap.offset));
}

} // namespace brixen::lyr::gen
