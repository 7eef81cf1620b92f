#include "markup_support.h"

#include <algorithm>
#include <ostream>
#include <utility>

namespace brixen::lyr::gen::markup_test {
namespace {

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

bool HasTable(const CMarkupSTL& document) { return document.TableCapacity() > 0; }

std::string NameAt(const CMarkupSTL& document, std::int32_t index) {
    const std::string& text = document.GetDoc();
    const auto start =
        text.find_first_not_of(" \t\n\r", static_cast<std::size_t>(document.At(index).startTagLeft) + 1);
    if (start == text.npos) return "?";
    return text.substr(start, text.find_first_of(" \t\n\r<>=\\/?!", start + 1) - start);
}

std::string Describe(const CMarkupSTL& document, std::int32_t index) {
    std::string text = std::to_string(index) + " <" + NameAt(document, index) + "> at";
    for (const std::int32_t position : EntryAt(document, index)) text += " " + std::to_string(position);
    return text;
}

bool HaveSamePositions(const Entry& left, const Entry& right) {
    return std::equal(left.begin(), left.begin() + 4, right.begin());
}

} // namespace

std::string NameOfElement(const CMarkupSTL& document, std::int32_t index) {
    return index == 0 ? "" : NameAt(document, index);
}

Tree TreeOf(const CMarkupSTL& document) {
    Tree tree;
    if (!document.IsWellFormed()) return tree;
    TableWalk walk(document);
    for (std::int32_t index = walk.Next(); index != 0; index = walk.Next()) {
        tree[NameOfElement(document, document.At(index).parent)].push_back(NameAt(document, index));
    }
    return tree;
}

std::map<std::string, std::int32_t> IndexesOf(const CMarkupSTL& document) {
    std::map<std::string, std::int32_t> indexes;
    if (!document.IsWellFormed()) return indexes;
    TableWalk walk(document);
    for (std::int32_t index = walk.Next(); index != 0; index = walk.Next()) {
        indexes[NameAt(document, index)] = index;
    }
    return indexes;
}

Entry EntryAt(const CMarkupSTL& document, std::int32_t index) {
    const ElemPos& entry = document.At(index);
    return {entry.startTagLeft, entry.startTagRight, entry.endTagLeft, entry.endTagRight,
            entry.parent,       entry.firstChild,    entry.nextSibling};
}

State StateOf(const CMarkupSTL& document) {
    State state{document.GetDoc(),
                {document.PosParent(), document.Pos(), document.PosChild(), document.NodeType(),
                 document.NodeOffset(), document.NodeLength()},
                {}};
    if (!HasTable(document)) return state;
    state.table.push_back({document.At(0).firstChild});
    for (std::int32_t index = 1; index < document.PosFree(); ++index) {
        state.table.push_back(EntryAt(document, index));
    }
    return state;
}

void PrintTo(const State& state, std::ostream* out) {
    *out << "\"" << state.document << "\" cursor";
    for (const std::int32_t place : state.cursor) *out << " " << place;
    for (const Entry& entry : state.table) {
        *out << "\n   ";
        for (const std::int32_t value : entry) *out << " " << value;
    }
}

CMarkupSTL Parsed(std::string_view text) {
    CMarkupSTL document;
    document.SetDoc(std::string(text));
    return document;
}

CMarkupSTL At(std::string_view text, const char* path) {
    CMarkupSTL document = Parsed(text);
    if (!document.FindElem(path)) document.SetDoc("no such path");
    return document;
}

std::string Outline(const CMarkupSTL& document) {
    if (!HasTable(document)) return {};
    std::string outline;
    TableWalk walk(document);
    std::int32_t depth = 1;
    for (std::int32_t index = walk.Next(); index != 0; index = walk.Next()) {
        const std::int32_t here = walk.Depth(index);
        if (here > depth) outline += "(";
        if (here < depth) outline.append(static_cast<std::size_t>(depth - here), ')');
        if (here <= depth && !outline.empty()) outline += " ";
        outline += NameAt(document, index);
        depth = here;
    }
    return outline.append(static_cast<std::size_t>(depth - 1), ')');
}

std::string TreeDifference(const CMarkupSTL& left, const CMarkupSTL& right) {
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

std::string FreshDifference(const CMarkupSTL& document) {
    const CMarkupSTL fresh = Parsed(document.GetDoc());
    if (document.IsWellFormed() && !fresh.IsWellFormed()) return "a fresh parse fails: " + fresh.GetError();
    return TreeDifference(document, fresh);
}

} // namespace brixen::lyr::gen::markup_test
