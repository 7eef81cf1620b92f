// Edits of the tree: splicing the text and shifting the positions after the splice.
#include "values/markup/tree.h"

#include "values/markup/escape.h"
#include "values/markup/nodes.h"
#include "values/markup/parser.h"
#include "values/markup/tokens.h"
#include "values/markup/writer.h"

#include <algorithm>

namespace brixen::lyr::gen {
namespace {

constexpr std::size_t kLeastGrowth = 200;

// Whether a text holds one whole element, and nothing else that would reach out of it.
bool IsOneElement(std::string_view text) {
    if (text.size() > kLongestMarkup) return false;
    ElementTable table;
    std::string error;
    const std::int32_t top = ParseElement(text, table, 0, error);
    return top > 0 && HoldsNodesOnly(text.substr(static_cast<std::size_t>(table[top].endTagRight) + 1));
}

void Shift(ElemPos& element, std::int32_t delta) {
    element.startTagLeft += delta;
    element.startTagRight += delta;
    element.endTagLeft += delta;
    element.endTagRight += delta;
}

// A new element with its line end. Name and content are borrowed; without content it has the short form.
class ElementMarkup {
public:
    ElementMarkup(std::string_view name, std::string_view content)
        : name(name), escaped(content, false), isShort(content.empty()) {}

    std::size_t Length() const {
        const std::size_t tags = isShort ? std::size("</>") - 1 : std::size("<></>") - 1 + name.size();
        return tags + name.size() + escaped.Length() + kLineEnd.size();
    }
    void CopyTo(char* out) const {
        MarkupWriter writer(out);
        writer.PutLiteral("<");
        writer.Put(name);
        if (isShort) return writer.PutLiteral("/>\r\n");
        writer.PutLiteral(">");
        escaped.CopyTo(writer.At());
        writer.Skip(escaped.Length());
        writer.PutLiteral("</");
        writer.Put(name);
        writer.PutLiteral(">\r\n");
    }
    // The entry of the element when its `<` is at `left`. It has no relatives yet.
    ElemPos EntryAt(std::ptrdiff_t left) const {
        const std::ptrdiff_t right = left + static_cast<std::ptrdiff_t>(Length() - kLineEnd.size()) - 1;
        const std::ptrdiff_t nameEnd = left + 1 + std::ssize(name);
        return {static_cast<std::int32_t>(left),
                static_cast<std::int32_t>(isShort ? right : nameEnd),
                static_cast<std::int32_t>(isShort ? nameEnd : right - 2 - std::ssize(name)),
                static_cast<std::int32_t>(right),
                0,
                0,
                0};
    }

private:
    std::string_view name;
    EscapedMarkup escaped;
    bool isShort;
};

} // namespace

std::int32_t MarkupTree::AddElement(const Gap& gap, std::string_view name, std::string_view content) {
    if (!IsPlainName(name) || !IsReachable(gap)) return 0;
    if (Owns(name) || Owns(content)) return AddElement(gap, std::string(name), std::string(content));
    const ElementMarkup markup(name, content);
    if (table.IsFull()) table.Grow();
    const std::ptrdiff_t left = AddRoom(gap, markup.Length(), true);
    if (left == kNowhere) return 0;
    markup.CopyTo(text.data() + left);
    const std::int32_t element = table.Take();
    table[element] = markup.EntryAt(left);
    Link(gap, element);
    return element;
}

std::int32_t MarkupTree::AddPiece(const Gap& gap, std::string_view piece) {
    if (Owns(piece)) return AddPiece(gap, std::string(piece));
    if (!IsReachable(gap) || !IsOneElement(piece)) return 0;
    // The parser once more, into the table this time: a refused piece leaves no trace there.
    const std::int32_t first = table.Free();
    std::string error;
    const std::int32_t top = ParseElement(piece, table, gap.parent, error);
    const std::int32_t end = table.Free();
    // Its entries are given out once its text is in.
    table.SetFree(first);
    const std::ptrdiff_t offset = AddText(gap, piece, true);
    if (offset == kNowhere) return 0;
    table.SetFree(end);
    for (std::int32_t element = first; element < end; ++element) {
        Shift(table[element], static_cast<std::int32_t>(offset));
    }
    Link(gap, top);
    return top;
}

std::ptrdiff_t MarkupTree::AddText(const Gap& gap, std::string_view added, bool onOwnLine) {
    const std::ptrdiff_t offset = AddRoom(gap, added.size(), onOwnLine);
    if (offset != kNowhere) MarkupWriter(text.data() + offset).Put(added);
    return offset;
}

bool MarkupTree::SetContent(std::int32_t element, std::string_view content) {
    if (IsShort(element)) return AddText({element, 0, 0}, content, false) != kNowhere;
    const std::ptrdiff_t begin = ContentBegin(element);
    return Replace({element, 0, begin}, ContentEnd(element) - begin, content);
}

bool MarkupTree::Replace(const Gap& gap, std::ptrdiff_t count, std::string_view added) {
    char* const room = MakeRoom(gap, count, added.size());
    if (room == nullptr) return false;
    MarkupWriter(room).Put(added);
    return true;
}

bool MarkupTree::ReplaceInTag(std::int32_t element, std::ptrdiff_t begin, std::ptrdiff_t end,
                              std::string_view added) {
    if (!Replace({element, 0, begin}, end - begin, added)) return false;
    table[element].startTagRight += static_cast<std::int32_t>(std::ssize(added) - (end - begin));
    return true;
}

std::int32_t MarkupTree::Remove(std::int32_t element) {
    const std::int32_t parent = table[element].parent;
    const std::int32_t previous = SiblingBefore(element);
    std::int32_t& link = previous != 0 ? table[previous].nextSibling : table[parent].firstChild;
    link = table[element].nextSibling;
    table[element].parent = ElementTable::kRemoved;
    const std::ptrdiff_t begin = table[element].startTagLeft;
    const std::ptrdiff_t end = SkipLineEnd(std::ptrdiff_t{table[element].endTagRight} + 1);
    Replace({parent, previous, begin}, end - begin, {});
    return previous;
}

// Replaces `count` bytes at a gap by room for `length` bytes, and returns that. Null when positions could not
// reach the end any more.
char* MarkupTree::MakeRoom(const Gap& gap, std::ptrdiff_t count, std::size_t length) {
    const auto removed = static_cast<std::size_t>(count);
    if (text.size() > kLongestMarkup) return nullptr;
    if (length > kLongestMarkup - (text.size() - removed)) return nullptr;
    Splice(static_cast<std::size_t>(gap.offset), removed, length);
    const auto delta = static_cast<std::int32_t>(static_cast<std::ptrdiff_t>(length) - count);
    if (delta != 0) ShiftAfter(gap.parent, gap.previous, delta);
    return text.data() + gap.offset;
}

// Makes room in a gap and opens a parent in the short form. Returns the offset of the room, or kNowhere.
std::ptrdiff_t MarkupTree::AddRoom(const Gap& gap, std::size_t length, bool onOwnLine) {
    if (gap.parent != 0 && IsShort(gap.parent)) return OpenAround(gap.parent, length, onOwnLine);
    return MakeRoom(gap, 0, length) != nullptr ? gap.offset : kNowhere;
}

// Opens an element in the short form, with room between its new tags.
std::ptrdiff_t MarkupTree::OpenAround(std::int32_t element, std::size_t length, bool onOwnLine) {
    const std::string_view tagEnd = onOwnLine ? ">\r\n" : ">";
    const std::string_view name = NameOf(element);
    const std::ptrdiff_t nameBegin = name.data() - text.data();
    const std::ptrdiff_t nameEnd = nameBegin + std::ssize(name);
    const std::ptrdiff_t slash = table[element].endTagLeft;
    // One more slash would keep the tag in the short form.
    if (text[static_cast<std::size_t>(slash) - 1] == '/') return kNowhere;
    const std::ptrdiff_t begin = slash + std::ssize(tagEnd);
    const std::ptrdiff_t endTag = begin + static_cast<std::ptrdiff_t>(length);
    const std::ptrdiff_t endTagRight = endTag + 2 + std::ssize(name);
    const std::ptrdiff_t end = endTagRight + std::ssize(tagEnd);
    const Gap gap{table[element].parent, element, slash};
    char* const room = MakeRoom(gap, 2, static_cast<std::size_t>(end - slash));
    if (room == nullptr) return kNowhere;
    MarkupWriter(room).Put(tagEnd);
    MarkupWriter endWriter(text.data() + endTag);
    endWriter.PutLiteral("</");
    endWriter.Put(Between(nameBegin, nameEnd));
    endWriter.Put(tagEnd);
    ElemPos& opened = table[element];
    opened.startTagRight = static_cast<std::int32_t>(slash);
    opened.endTagLeft = static_cast<std::int32_t>(endTag);
    opened.endTagRight = static_cast<std::int32_t>(endTagRight);
    return begin;
}

void MarkupTree::Splice(std::size_t offset, std::size_t removed, std::size_t added) {
    const std::size_t length = text.size() - removed + added;
    if (length > text.capacity()) {
        // A fresh text, since growing the old one would round the size up.
        std::string larger;
        const std::size_t capacity = text.capacity();
        larger.reserve(std::max({capacity + capacity / 2, length, kLeastGrowth}));
        larger.append(text, 0, offset).append(added, '\0').append(text, offset + removed);
        text.swap(larger);
    } else {
        text.replace(offset, removed, added, '\0');
    }
}

void MarkupTree::ShiftAfter(std::int32_t parent, std::int32_t previous, std::int32_t delta) {
    for (std::int32_t next = NextChild(parent, previous);;) {
        for (; next != 0; next = table[next].nextSibling) ShiftSubtree(next, delta);
        if (parent == 0) return;
        ElemPos& above = table[parent];
        above.endTagLeft += delta;
        above.endTagRight += delta;
        next = above.nextSibling;
        parent = above.parent;
    }
}

// Nesting costs no stack.
void MarkupTree::ShiftSubtree(std::int32_t top, std::int32_t delta) {
    for (std::int32_t at = top;;) {
        Shift(table[at], delta);
        if (table[at].firstChild != 0) {
            at = table[at].firstChild;
            continue;
        }
        while (at != top && table[at].nextSibling == 0) at = table[at].parent;
        if (at == top) return;
        at = table[at].nextSibling;
    }
}

void MarkupTree::Link(const Gap& gap, std::int32_t element) {
    std::int32_t& link = gap.previous != 0 ? table[gap.previous].nextSibling : table[gap.parent].firstChild;
    ElemPos& linked = table[element];
    linked.parent = gap.parent;
    linked.nextSibling = link;
    link = element;
    if (gap.parent == 0) table[0].endTagLeft = static_cast<std::int32_t>(text.size());
}

} // namespace brixen::lyr::gen
