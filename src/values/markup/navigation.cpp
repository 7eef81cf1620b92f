// The cursor: what the table says, path search, and the walk over nodes.
#include "values/markup/document.h"

#include "values/markup/parser.h"
#include "values/markup/tokens.h"

namespace brixen::lyr::gen {

// A removed element keeps its subtree, whose parents lead up to it.
bool CMarkupSTL::IsLive(std::int32_t element) const {
    while (element > 0) element = table[element].parent;
    return element != kRemoved;
}

std::string_view CMarkupSTL::NameOf(std::int32_t element) const {
    return TagNameAt(MarkupSpan(document), table[element].startTagLeft);
}

std::int32_t CMarkupSTL::FindByPath(std::int32_t parent, std::int32_t start, std::string_view path) const {
    std::int32_t element = NextUnder(parent, start);
    if (path.starts_with('/')) {
        element = FirstUnder(0);
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
        // No way back from here: a failure below does not try a later sibling.
        path.remove_prefix(name.size() + 1);
        element = table[element].firstChild;
    }
    return 0;
}

void CMarkupSTL::ResetPos() { cursor = {}; }

bool CMarkupSTL::FindElemByPath(std::string_view path) {
    const std::int32_t found = FindByPath(cursor.posParent, cursor.pos, path);
    if (found == 0) return false;
    cursor = Cursor::On(table[found].parent, found);
    return true;
}

bool CMarkupSTL::FindChildElem(MarkupText path) {
    const std::int32_t pos = cursor.pos != 0 ? cursor.pos : FirstUnder(cursor.posParent);
    if (pos == 0) return false;
    const std::int32_t found = FindByPath(pos, cursor.posChild, path);
    if (found == 0) return false;
    const std::int32_t parent = table[found].parent;
    cursor = Cursor::On(table[parent].parent, parent, found);
    return true;
}

std::ptrdiff_t CMarkupSTL::NextNodeOffset() const {
    if (cursor.IsOnNode()) return std::ptrdiff_t{cursor.nodeOffset} + cursor.nodeLength;
    return cursor.pos != 0 ? std::ptrdiff_t{table[cursor.pos].endTagRight} + 1
                           : ContentBegin(cursor.posParent);
}

int CMarkupSTL::FindNode(int typeMask) {
    if (document.size() > kLongestMarkup) return kMarkupNone;
    const MarkupSpan text(Between(0, ContentEnd(cursor.posParent)));
    Cursor at = Cursor::On(cursor.posParent, cursor.pos);
    ScannedNode node{kMarkupNone, 0};
    for (std::ptrdiff_t offset = NextNodeOffset(); offset < text.end; offset = node.end) {
        const std::int32_t next = NextUnder(at.posParent, at.pos);
        if (next != 0 && table[next].startTagLeft == offset) {
            at = Cursor::On(at.posParent, next);
            node = {kMarkupElement, std::ptrdiff_t{table[next].endTagRight} + 1};
        } else {
            node = ScanNode(text, offset);
            if (node.kind == kMarkupNone || node.kind == kMarkupElement) return kMarkupNone;
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
    if (!IsLive(saved.posParent) || !IsLive(saved.pos) || !IsLive(saved.posChild)) return false;
    cursor = Cursor::On(saved.posParent, saved.pos, saved.posChild);
    return true;
}

} // namespace brixen::lyr::gen
