// What all edits share: finding the place, splicing the text, shifting the positions behind.
#include "values/markup/document.h"

#include "values/markup/parser.h"
#include "values/markup/tokens.h"
#include "values/markup/writer.h"

#include <algorithm>

namespace brixen::lyr::gen {
namespace {

constexpr std::size_t kLeastGrowth = 200;

} // namespace

std::int32_t CMarkupSTL::LastUnder(std::int32_t parent) const {
    std::int32_t element = FirstUnder(parent);
    while (element != 0 && table[element].nextSibling != 0) element = table[element].nextSibling;
    return element;
}

std::int32_t CMarkupSTL::SiblingBefore(std::int32_t element) const {
    std::int32_t sibling = table[table[element].parent].firstChild;
    if (sibling == element) return 0;
    while (table[sibling].nextSibling != element) sibling = table[sibling].nextSibling;
    return sibling;
}

// White space that leads up to a tag or to the end stays in front of what is put there.
std::ptrdiff_t CMarkupSTL::SkipLineEnd(std::ptrdiff_t offset) const {
    const MarkupSpan text(document);
    const std::ptrdiff_t inked = text.SkipBlanks(offset);
    return inked >= text.end || text[inked] == '<' ? inked : offset;
}

CMarkupSTL::Place CMarkupSTL::PlaceUnder(std::int32_t parent, std::int32_t current, bool behind) const {
    if (current == 0) {
        return behind ? Place{parent, LastUnder(parent), ContentEnd(parent)}
                      : Place{parent, 0, SkipLineEnd(ContentBegin(parent))};
    }
    return behind ? Place{parent, current, SkipLineEnd(std::ptrdiff_t{table[current].endTagRight} + 1)}
                  : Place{parent, SiblingBefore(current), table[current].startTagLeft};
}

CMarkupSTL::Place CMarkupSTL::PlaceBesideCursor(bool behind) const {
    if (!cursor.IsOnNode()) return PlaceUnder(cursor.posParent, cursor.pos, behind);
    return {cursor.posParent, cursor.pos, behind ? SkipLineEnd(NextNodeOffset()) : cursor.nodeOffset};
}

// Whether a parse would find an element put there: with no root element yet, the text in front of it may hold
// anything.
bool CMarkupSTL::IsReachable(const Place& place) const {
    if (place.parent != 0 || FirstUnder(0) != 0) return true;
    const MarkupSpan text(Between(0, place.offset));
    for (std::ptrdiff_t offset = 0; offset < text.end;) {
        const ScannedNode node = ScanNode(text, offset);
        if (node.kind == kMarkupNone || node.kind == kMarkupElement) return false;
        offset = node.end;
    }
    return true;
}

// Replaces `count` bytes at the place, which lie behind `place.previous` and hold no element that stays, by
// room for `length` bytes, and returns that. Null when positions could not reach the end any more.
char* CMarkupSTL::MakeRoom(const Place& place, std::ptrdiff_t count, std::size_t length) {
    const auto removed = static_cast<std::size_t>(count);
    if (document.size() > kLongestMarkup) return nullptr;
    if (length > kLongestMarkup - (document.size() - removed)) return nullptr;
    Splice(static_cast<std::size_t>(place.offset), removed, length);
    const auto delta = static_cast<std::int32_t>(static_cast<std::ptrdiff_t>(length) - count);
    if (delta != 0) {
        ShiftBehind(place.parent, place.previous, delta);
        if (cursor.IsOnNode() && cursor.nodeOffset >= place.offset + count) cursor.nodeOffset += delta;
    }
    return document.data() + place.offset;
}

bool CMarkupSTL::Replace(const Place& place, std::ptrdiff_t count, std::string_view text) {
    char* const room = MakeRoom(place, count, text.size());
    if (room == nullptr) return false;
    MarkupWriter(room).Put(text);
    return true;
}

void CMarkupSTL::Splice(std::size_t offset, std::size_t removed, std::size_t added) {
    const std::size_t length = document.size() - removed + added;
    if (length > document.capacity()) {
        // A fresh text, since growing the old one would round the size up.
        std::string larger;
        const std::size_t capacity = document.capacity();
        larger.reserve(std::max({capacity + capacity / 2, length, kLeastGrowth}));
        larger.append(document, 0, offset).append(added, '\0').append(document, offset + removed);
        document.swap(larger);
    } else {
        document.replace(offset, removed, added, '\0');
    }
}

void CMarkupSTL::ShiftBehind(std::int32_t parent, std::int32_t previous, std::int32_t delta) {
    for (std::int32_t next = NextUnder(parent, previous);;) {
        for (; next != 0; next = table[next].nextSibling) ShiftSubtree(next, delta);
        if (parent == 0) return;
        ElemPos& above = table[parent];
        above.endTagLeft += delta;
        above.endTagRight += delta;
        next = above.nextSibling;
        parent = above.parent;
    }
}

void CMarkupSTL::ShiftSubtree(std::int32_t top, std::int32_t delta) {
    for (std::int32_t at = top;;) {
        ElemPos& element = table[at];
        element.startTagLeft += delta;
        element.startTagRight += delta;
        element.endTagLeft += delta;
        element.endTagRight += delta;
        if (element.firstChild != 0) {
            at = element.firstChild;
            continue;
        }
        while (at != top && table[at].nextSibling == 0) at = table[at].parent;
        if (at == top) return;
        at = table[at].nextSibling;
    }
}

// Makes room at a place, which opens a parent in the short form. Returns where it begins, or kNowhere.
std::ptrdiff_t CMarkupSTL::PutRoom(const Place& place, std::size_t length, bool onOwnLine) {
    if (place.parent != 0 && IsShort(place.parent)) return OpenAround(place.parent, length, onOwnLine);
    return MakeRoom(place, 0, length) != nullptr ? place.offset : kNowhere;
}

std::ptrdiff_t CMarkupSTL::PutText(const Place& place, std::string_view text, bool onOwnLine) {
    const std::ptrdiff_t offset = PutRoom(place, text.size(), onOwnLine);
    if (offset != kNowhere) MarkupWriter(document.data() + offset).Put(text);
    return offset;
}

// Opens an element in the short form, with room between its new tags.
std::ptrdiff_t CMarkupSTL::OpenAround(std::int32_t element, std::size_t length, bool onOwnLine) {
    const std::string_view tagEnd = onOwnLine ? ">\r\n" : ">";
    const std::string_view name = NameOf(element);
    const std::ptrdiff_t nameBegin = name.data() - document.data();
    const std::ptrdiff_t nameEnd = nameBegin + std::ssize(name);
    const std::ptrdiff_t slash = table[element].endTagLeft;
    // One slash more would keep the tag in the short form.
    if (document[static_cast<std::size_t>(slash) - 1] == '/') return kNowhere;
    const std::ptrdiff_t begin = slash + std::ssize(tagEnd);
    const std::ptrdiff_t endTag = begin + static_cast<std::ptrdiff_t>(length);
    const std::ptrdiff_t endTagRight = endTag + 2 + std::ssize(name);
    const std::ptrdiff_t end = endTagRight + std::ssize(tagEnd);
    const Place place{table[element].parent, element, slash};
    char* const room = MakeRoom(place, 2, static_cast<std::size_t>(end - slash));
    if (room == nullptr) return kNowhere;
    MarkupWriter(room).Put(tagEnd);
    MarkupWriter endWriter(document.data() + endTag);
    endWriter.PutLiteral("</");
    endWriter.Put(Between(nameBegin, nameEnd));
    endWriter.Put(tagEnd);
    ElemPos& opened = table[element];
    opened.startTagRight = static_cast<std::int32_t>(slash);
    opened.endTagLeft = static_cast<std::int32_t>(endTag);
    opened.endTagRight = static_cast<std::int32_t>(endTagRight);
    return begin;
}

void CMarkupSTL::Link(const Place& place, std::int32_t element) {
    std::int32_t& link =
        place.previous != 0 ? table[place.previous].nextSibling : table[place.parent].firstChild;
    ElemPos& linked = table[element];
    linked.parent = place.parent;
    linked.nextSibling = link;
    link = element;
    if (place.parent == 0) table[0].endTagLeft = static_cast<std::int32_t>(document.size());
}

// Takes an element out of table and text, and the white space behind it when it leads up to a tag or to the
// end. Returns the sibling in front.
std::int32_t CMarkupSTL::Remove(std::int32_t element) {
    const std::int32_t parent = table[element].parent;
    const std::int32_t previous = SiblingBefore(element);
    std::int32_t& link = previous != 0 ? table[previous].nextSibling : table[parent].firstChild;
    link = table[element].nextSibling;
    table[element].parent = kRemoved;
    const std::ptrdiff_t begin = table[element].startTagLeft;
    const std::ptrdiff_t end = SkipLineEnd(std::ptrdiff_t{table[element].endTagRight} + 1);
    Replace({parent, previous, begin}, end - begin, {});
    return previous;
}

bool CMarkupSTL::RemoveElem() {
    if (cursor.pos == 0 || cursor.IsOnNode()) return false;
    const std::int32_t previous = Remove(cursor.pos);
    cursor = Cursor::On(cursor.posParent, previous);
    return true;
}

bool CMarkupSTL::RemoveChildElem() {
    if (cursor.posChild == 0) return false;
    cursor.posChild = Remove(cursor.posChild);
    return true;
}

bool CMarkupSTL::RemoveNode() {
    if (!cursor.IsOnNode()) return RemoveElem();
    Replace({cursor.posParent, cursor.pos, cursor.nodeOffset}, cursor.nodeLength, {});
    cursor = Cursor::On(cursor.posParent, cursor.pos);
    return true;
}

} // namespace brixen::lyr::gen
