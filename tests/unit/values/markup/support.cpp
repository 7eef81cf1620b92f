#include "unit/values/markup/support.h"

#include <algorithm>
#include <ostream>
#include <utility>

namespace brixen::lyr::gen::markup_test {
namespace {

bool HasTable(const CMarkupSTL& document) { return document.TableCapacity() > 0; }

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

} // namespace brixen::lyr::gen::markup_test
