// The moves of the cursor: by path, over nodes, and to saved positions.
#include "values/markup/document.h"

#include "values/markup/parser.h"
#include "values/markup/tokens.h"

namespace brixen::lyr::gen {

void CMarkupSTL::ResetPos() { cursor = {}; }

bool CMarkupSTL::FindElemByPath(std::string_view path) {
    const std::int32_t found = tree.Find(cursor.posParent, cursor.pos, path);
    if (found == 0) return false;
    cursor = Cursor::On(tree[found].parent, found);
    return true;
}

bool CMarkupSTL::FindChildElem(MarkupText path) {
    const std::int32_t pos = cursor.pos != 0 ? cursor.pos : tree.FirstChild(cursor.posParent);
    if (pos == 0) return false;
    const std::int32_t found = tree.Find(pos, cursor.posChild, path);
    if (found == 0) return false;
    const std::int32_t parent = tree[found].parent;
    cursor = Cursor::On(tree[parent].parent, parent, found);
    return true;
}

std::ptrdiff_t CMarkupSTL::NextNodeOffset() const {
    if (cursor.IsOnNode()) return std::ptrdiff_t{cursor.nodeOffset} + cursor.nodeLength;
    return cursor.pos != 0 ? std::ptrdiff_t{tree[cursor.pos].endTagRight} + 1
                           : tree.ContentBegin(cursor.posParent);
}

int CMarkupSTL::FindNode(int typeMask) {
    if (GetDoc().size() > kLongestMarkup) return kMarkupNone;
    const std::string_view text = tree.Between(0, tree.ContentEnd(cursor.posParent));
    Cursor at = Cursor::On(cursor.posParent, cursor.pos);
    ScannedNode node{kMarkupNone, 0};
    for (std::ptrdiff_t offset = NextNodeOffset(); offset < std::ssize(text); offset = node.end) {
        const std::int32_t next = tree.NextChild(at.posParent, at.pos);
        if (next != 0 && tree[next].startTagLeft == offset) {
            at = Cursor::On(at.posParent, next);
            node = {kMarkupElement, std::ptrdiff_t{tree[next].endTagRight} + 1};
        } else {
            node = ScanNode(text, offset);
            if (!node.IsWhole()) return kMarkupNone;
        }
        if (typeMask != 0 && (typeMask & node.kind) == 0) continue;
        cursor = at;
        cursor.nodeType = node.kind;
        if (node.kind == kMarkupElement) return node.kind;
        cursor.nodeOffset = static_cast<std::int32_t>(offset);
        cursor.nodeLength = static_cast<std::int32_t>(node.end - offset);
        return node.kind;
    }
    return kMarkupNone;
}

bool CMarkupSTL::SavePos(const char* name) {
    if (name == nullptr) return false;
    savedPositions[name] = {cursor.posParent, cursor.pos, cursor.posChild};
    return true;
}

bool CMarkupSTL::RestorePos(const char* name) {
    if (name == nullptr) return false;
    const auto found = savedPositions.find(std::string_view(name));
    if (found == savedPositions.end()) return false;
    const SavedPosition& saved = found->second;
    if (!tree.IsLive(saved.posParent) || !tree.IsLive(saved.pos) || !tree.IsLive(saved.posChild))
        return false;
    cursor = Cursor::On(saved.posParent, saved.pos, saved.posChild);
    return true;
}

} // namespace brixen::lyr::gen
