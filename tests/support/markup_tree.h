// The table of a markup document compared with that of another: for unit tests and fuzzers.
#pragma once

#include "values/markup/document.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace brixen::lyr::gen::markup_test {

// One entry of the table: the four positions, then parent, first child and next sibling.
using Entry = std::array<std::int32_t, 7>;
inline Entry EntryAt(const CMarkupSTL& document, std::int32_t index) {
    const ElemPos& entry = document.At(index);
    return {entry.startTagLeft, entry.startTagRight, entry.endTagLeft, entry.endTagRight,
            entry.parent,       entry.firstChild,    entry.nextSibling};
}

// Walks over the elements below one, or over all of a table, in document order: children before siblings.
class TableWalk {
public:
    explicit TableWalk(const CMarkupSTL& document, std::int32_t top = 0)
        : document(document), top(top), here(top) {}

    // Returns the next element; 0 after the last one.
    std::int32_t Next() {
        const std::int32_t child = document.At(here).firstChild;
        if (child != 0) return here = child;
        while (here != top && document.At(here).nextSibling == 0) here = document.At(here).parent;
        if (here == top) return 0;
        return here = document.At(here).nextSibling;
    }
    std::int32_t Depth(std::int32_t index) const {
        std::int32_t depth = 0;
        for (; index != 0; index = document.At(index).parent) ++depth;
        return depth;
    }

private:
    const CMarkupSTL& document;
    std::int32_t top;
    std::int32_t here;
};

// Returns whether an element is a child of its parent, and so on up to the root.
inline bool IsInTree(const CMarkupSTL& document, std::int32_t element) {
    for (; element > 0; element = document.At(element).parent) {
        const std::int32_t parent = document.At(element).parent;
        if (parent < 0) return false;
        std::int32_t sibling = document.At(parent).firstChild;
        while (sibling != 0 && sibling != element) sibling = document.At(sibling).nextSibling;
        if (sibling == 0) return false;
    }
    return true;
}

inline std::string NameAt(const CMarkupSTL& document, std::int32_t index) {
    const std::string& text = document.GetDoc();
    const auto start =
        text.find_first_not_of(" \t\n\r", static_cast<std::size_t>(document.At(index).startTagLeft) + 1);
    if (start == text.npos) return "?";
    return text.substr(start, text.find_first_of(" \t\n\r<>=\\/?!", start + 1) - start);
}

inline std::string Describe(const CMarkupSTL& document, std::int32_t index) {
    std::string text = std::to_string(index) + " <" + NameAt(document, index) + "> at";
    for (const std::int32_t position : EntryAt(document, index)) text += " " + std::to_string(position);
    return text;
}

inline bool HaveSamePositions(const Entry& left, const Entry& right) {
    return std::equal(left.begin(), left.begin() + 4, right.begin());
}

// Returns the difference between the elements below `leftTop` in one table and those below `rightTop` in
// another, in shape or in positions, which are `shift` higher on the left; empty if there is none. Indexes
// may differ.
inline std::string Difference(const CMarkupSTL& left, std::int32_t leftTop, const CMarkupSTL& right,
                              std::int32_t rightTop, std::int32_t shift) {
    std::vector<std::int32_t> partner(static_cast<std::size_t>(left.PosFree()), 0);
    partner[static_cast<std::size_t>(leftTop)] = rightTop;
    TableWalk walkLeft(left, leftTop), walkRight(right, rightTop);
    // A circle would not end by itself: no tree has more elements than the table has entries.
    for (std::int32_t count = 0; count <= left.PosFree(); ++count) {
        const std::int32_t inLeft = walkLeft.Next(), inRight = walkRight.Next();
        if (inLeft == 0 && inRight == 0) return {};
        if (inLeft == 0 || inRight == 0) {
            return inLeft == 0 ? "the second has also " + Describe(right, inRight)
                               : "the first has also " + Describe(left, inLeft);
        }
        const Entry entry = EntryAt(left, inLeft);
        Entry other = EntryAt(right, inRight);
        for (std::size_t position = 0; position < 4; ++position) other[position] += shift;
        partner[static_cast<std::size_t>(inLeft)] = inRight;
        if (!HaveSamePositions(entry, other) || partner[static_cast<std::size_t>(entry[4])] != other[4]) {
            return Describe(left, inLeft) + " is not " + Describe(right, inRight);
        }
    }
    return "the first is a circle";
}

// Returns the difference between the trees of two tables; empty if there is none.
inline std::string TreeDifference(const CMarkupSTL& left, const CMarkupSTL& right) {
    if (!left.IsWellFormed() || !right.IsWellFormed()) {
        return left.IsWellFormed() == right.IsWellFormed() ? "" : "only one is well-formed";
    }
    return Difference(left, 0, right, 0, 0);
}

// Returns the problem of the table of a document, whatever a parse would find beside the root. It is empty if
// each of the document's own elements is after the one before, and has the table that a parse of it alone
// makes.
inline std::string TableProblem(const CMarkupSTL& document) {
    if (!document.IsWellFormed()) return {};
    const std::string& text = document.GetDoc();
    std::int32_t count = 0, end = 0;
    for (std::int32_t top = document.At(0).firstChild; top != 0; top = document.At(top).nextSibling) {
        const ElemPos& place = document.At(top);
        const bool isInside = place.startTagLeft >= end && place.endTagRight > place.startTagLeft &&
                              place.endTagRight < static_cast<std::int32_t>(text.size());
        if (!isInside || place.parent != 0) return std::to_string(top) + " is out of place";
        if (++count > document.PosFree()) return "the siblings are a circle";
        end = place.endTagRight + 1;
        CMarkupSTL alone;
        alone.SetDoc(text.substr(static_cast<std::size_t>(place.startTagLeft),
                                 static_cast<std::size_t>(end - place.startTagLeft)));
        if (!alone.IsWellFormed()) return std::to_string(top) + " alone: " + alone.GetError();
        Entry own = EntryAt(document, top);
        for (std::size_t position = 0; position < 4; ++position) own[position] -= place.startTagLeft;
        if (!HaveSamePositions(own, EntryAt(alone, 1))) return Describe(document, top) + " has other tags";
        std::string difference = Difference(document, top, alone, 1, place.startTagLeft);
        if (!difference.empty()) return difference;
    }
    return {};
}

// Returns the difference between the table of a document and that of a fresh parse; empty if there is none.
inline std::string FreshDifference(const CMarkupSTL& document) {
    CMarkupSTL fresh;
    fresh.SetDoc(document.GetDoc());
    if (document.IsWellFormed() && !fresh.IsWellFormed()) return "a fresh parse fails: " + fresh.GetError();
    return TreeDifference(document, fresh);
}

} // namespace brixen::lyr::gen::markup_test
