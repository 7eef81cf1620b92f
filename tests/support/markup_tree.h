// The table of a markup document beside another: for unit tests and fuzzers.
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

// Goes through a table in document order, children before siblings, from the root.
class TableWalk {
public:
    explicit TableWalk(const CMarkupSTL& document) : document(document) {}

    // 0 behind the last element.
    std::int32_t Next() {
        const std::int32_t child = document.At(here).firstChild;
        if (child != 0) return here = child;
        while (here != 0 && document.At(here).nextSibling == 0) here = document.At(here).parent;
        return here = here == 0 ? 0 : document.At(here).nextSibling;
    }
    std::int32_t Depth(std::int32_t index) const {
        std::int32_t depth = 0;
        for (; index != 0; index = document.At(index).parent) ++depth;
        return depth;
    }

private:
    const CMarkupSTL& document;
    std::int32_t here = 0;
};

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

// How the trees of two tables differ, in shape or in positions; empty when they do not. Indexes may differ.
inline std::string TreeDifference(const CMarkupSTL& left, const CMarkupSTL& right) {
    if (!left.IsWellFormed() || !right.IsWellFormed()) {
        return left.IsWellFormed() == right.IsWellFormed() ? "" : "only one is well-formed";
    }
    std::vector<std::int32_t> partner(static_cast<std::size_t>(left.PosFree()), 0);
    TableWalk walkLeft(left), walkRight(right);
    // A circle would not end by itself: no tree has more elements than entries were given out.
    for (std::int32_t count = 0; count <= left.PosFree(); ++count) {
        const std::int32_t inLeft = walkLeft.Next(), inRight = walkRight.Next();
        if (inLeft == 0 && inRight == 0) return {};
        if (inLeft == 0 || inRight == 0) {
            return inLeft == 0 ? "the second has also " + Describe(right, inRight)
                               : "the first has also " + Describe(left, inLeft);
        }
        const Entry entry = EntryAt(left, inLeft), other = EntryAt(right, inRight);
        partner[static_cast<std::size_t>(inLeft)] = inRight;
        if (!HaveSamePositions(entry, other) || partner[static_cast<std::size_t>(entry[4])] != other[4]) {
            return Describe(left, inLeft) + " is not " + Describe(right, inRight);
        }
    }
    return "the first goes round in a circle";
}

// What is wrong with the table of a document; empty when it is what a fresh parse of the text makes.
inline std::string FreshDifference(const CMarkupSTL& document) {
    CMarkupSTL fresh;
    fresh.SetDoc(document.GetDoc());
    if (document.IsWellFormed() && !fresh.IsWellFormed()) return "a fresh parse fails: " + fresh.GetError();
    return TreeDifference(document, fresh);
}

} // namespace brixen::lyr::gen::markup_test
