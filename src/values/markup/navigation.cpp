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
    const bool steps = cursor.pos == 0;
    const std::int32_t pos = steps ? tree.FirstChild(cursor.posParent) : cursor.pos;
    if (pos == 0) return false;
    const std::int32_t found = tree.Find(pos, steps ? 0 : cursor.posChild, path);
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

// The node at `offset`, which ends before the next element. Beside the root, where the text is not parsed, it
// might else run over one.
ScannedNode CMarkupSTL::NodeBefore(std::int32_t nextElement, std::ptrdiff_t offset) const {
    const std::ptrdiff_t end =
        nextElement != 0 ? tree[nextElement].startTagLeft : tree.ContentEnd(cursor.posParent);
    return ScanNode(tree.Between(0, end), offset);
}

int CMarkupSTL::FindNode(int typeMask) {
    if (GetDoc().size() > kLongestMarkup) return kMarkupNone;
    const std::ptrdiff_t end = tree.ContentEnd(cursor.posParent);
    Cursor at = Cursor::On(cursor.posParent, cursor.pos);
    ScannedNode node{kMarkupNone, 0};
    for (std::ptrdiff_t offset = NextNodeOffset(); offset < end; offset = node.end) {
        const std::int32_t next = tree.NextChild(at.posParent, at.pos);
        if (next != 0 && tree[next].startTagLeft == offset) {
            at = Cursor::On(at.posParent, next);
            node = {kMarkupElement, std::ptrdiff_t{tree[next].endTagRight} + 1};
        } else {
            node = NodeBefore(next, offset);
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
