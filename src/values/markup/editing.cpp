// Edits at the cursor: elements, nodes, content and attributes.
#include "values/markup/document.h"

#include "values/markup/attributes.h"
#include "values/markup/escape.h"
#include "values/markup/tokens.h"
#include "values/markup/writer.h"

namespace brixen::lyr::gen {
namespace {

bool IsTextKind(int kind) { return kind == kMarkupText || kind == kMarkupWhiteSpace; }

// The kind that a parse sees in such a markup, 0 when it is not one whole node. Text may turn into white
// space and back.
int KindOf(int kind, std::string_view markup) {
    const ScannedNode node = ScanNode(markup, 0);
    const bool same = node.kind == kind || (IsTextKind(node.kind) && IsTextKind(kind));
    return same && node.end == std::ssize(markup) ? node.kind : kMarkupNone;
}

bool IsOnOwnLine(int kind) { return !IsTextKind(kind) && kind != kMarkupCData; }

} // namespace

MarkupTree::Gap CMarkupSTL::GapBesideCursor(bool after) const {
    if (!cursor.IsOnNode()) return tree.GapUnder(cursor.posParent, cursor.pos, after);
    return {cursor.posParent, cursor.pos, after ? tree.SkipLineEnd(NextNodeOffset()) : cursor.nodeOffset};
}

bool CMarkupSTL::PutSibling(bool after, std::string_view name, std::string_view content) {
    const std::int32_t element = tree.AddElement(GapBesideCursor(after), name, content);
    if (element != 0) cursor = Cursor::On(cursor.posParent, element);
    return element != 0;
}

bool CMarkupSTL::PutChild(bool after, std::string_view name, std::string_view content) {
    if (cursor.pos == 0) return false;
    const MarkupTree::Gap gap = tree.GapUnder(cursor.pos, cursor.posChild, after);
    const std::int32_t child = EditBelow([&] { return tree.AddElement(gap, name, content); });
    if (child != 0) cursor.posChild = child;
    return child != 0;
}

bool CMarkupSTL::AddElem(MarkupText name, MarkupText content) { return PutSibling(true, name, content); }

bool CMarkupSTL::InsertElem(MarkupText name, MarkupText content) { return PutSibling(false, name, content); }

bool CMarkupSTL::AddChildElem(MarkupText name, MarkupText content) { return PutChild(true, name, content); }

bool CMarkupSTL::InsertChildElem(MarkupText name, MarkupText content) {
    return PutChild(false, name, content);
}

bool CMarkupSTL::PutNode(bool after, int kind, std::string_view text) {
    if (kind == kMarkupElement) return PutSibling(after, text, {});
    std::string markup = NodeMarkup(kind, text);
    const int seen = KindOf(kind, markup);
    if (seen == kMarkupNone) return false;
    const std::ptrdiff_t length = std::ssize(markup);
    if (IsOnOwnLine(kind)) markup += kLineEnd;
    const MarkupTree::Gap gap = GapBesideCursor(after);
    const std::ptrdiff_t offset = tree.AddText(gap, markup, IsOnOwnLine(kind));
    if (offset == MarkupTree::kNowhere) return false;
    cursor = Cursor::On(gap.parent, gap.previous);
    cursor.nodeType = seen;
    cursor.nodeOffset = static_cast<std::int32_t>(offset);
    cursor.nodeLength = static_cast<std::int32_t>(length);
    return true;
}

bool CMarkupSTL::AddNode(int kind, MarkupText text) { return PutNode(true, kind, text); }

bool CMarkupSTL::InsertNode(int kind, MarkupText text) { return PutNode(false, kind, text); }

bool CMarkupSTL::PutSubDoc(bool after, std::string_view text) {
    const std::int32_t top = tree.AddPiece(GapBesideCursor(after), text);
    if (top != 0) cursor = Cursor::On(cursor.posParent, top);
    return top != 0;
}

bool CMarkupSTL::AddSubDoc(MarkupText text) { return PutSubDoc(true, text); }

bool CMarkupSTL::InsertSubDoc(MarkupText text) { return PutSubDoc(false, text); }

bool CMarkupSTL::SetData(MarkupText text, bool asCData) {
    if (cursor.IsOnNode()) return SetNodeText(text);
    if (cursor.pos == 0 || tree[cursor.pos].firstChild != 0) return false;
    const bool section = asCData && text.find(kCDataEnd) == std::string_view::npos;
    return tree.SetContent(cursor.pos, NodeMarkup(section ? kMarkupCData : kMarkupText, text));
}

bool CMarkupSTL::SetNodeText(std::string_view text) {
    if (IsTextKind(cursor.nodeType) && text.empty()) return RemoveNode();
    const std::string markup = NodeMarkup(cursor.nodeType, text);
    const int seen = KindOf(cursor.nodeType, markup);
    const MarkupTree::Gap gap{cursor.posParent, cursor.pos, cursor.nodeOffset};
    if (seen == kMarkupNone || !tree.Replace(gap, cursor.nodeLength, markup)) return false;
    cursor.nodeType = seen;
    cursor.nodeLength = static_cast<std::int32_t>(markup.size());
    return true;
}

bool CMarkupSTL::FindSetData(MarkupText path, MarkupText text, bool asCData) {
    const Cursor before = cursor;
    if (FindElem(path) && SetData(text, asCData)) return true;
    cursor = before;
    return false;
}

// Replaces bytes in the tag of `element`, or in the processing instruction at the cursor when that is 0.
bool CMarkupSTL::ReplaceInTag(std::int32_t element, std::ptrdiff_t begin, std::ptrdiff_t end,
                              std::string_view text) {
    if (element != 0) return tree.ReplaceInTag(element, begin, end, text);
    if (!tree.Replace({cursor.posParent, cursor.pos, begin}, end - begin, text)) return false;
    cursor.nodeLength += static_cast<std::int32_t>(std::ssize(text) - (end - begin));
    return true;
}

bool CMarkupSTL::SetAttributeIn(TagRange tag, std::int32_t element, std::string_view name,
                                std::string_view value) {
    if (tag.begin == 0 || !IsPlainName(name)) return false;
    const std::string escaped = EscapeMarkup(value, true);
    const FoundAttribute found = FindAttribute(MarkupSpan(GetDoc()), tag.begin, name);
    if (found.exists) {
        return found.value.end < tag.end &&
               ReplaceInTag(element, found.value.begin, found.value.end, escaped);
    }
    if (found.stop > tag.end || found.lastEnd == 0) return false;
    std::string added;
    added.reserve(name.size() + escaped.size() + 4);
    added.append(" ").append(name).append("=\"").append(escaped).append("\"");
    return ReplaceInTag(element, found.lastEnd, found.lastEnd, added);
}

bool CMarkupSTL::SetAttrib(MarkupText name, MarkupText value) {
    return SetAttributeIn(CurrentTag(), cursor.IsOnNode() ? 0 : cursor.pos, name, value);
}

bool CMarkupSTL::SetChildAttrib(MarkupText name, MarkupText value) {
    return EditBelow([&] { return SetAttributeIn(TagOf(cursor.posChild), cursor.posChild, name, value); });
}

bool CMarkupSTL::RemoveAttrib(MarkupText name) {
    const TagRange tag = CurrentTag();
    if (tag.begin == 0) return false;
    const MarkupSpan text(GetDoc());
    const FoundAttribute found = FindAttribute(text, tag.begin, name);
    if (!found.exists || found.value.end >= tag.end) return false;
    std::ptrdiff_t from = found.nameBegin;
    const std::ptrdiff_t to = found.value.After();
    // Without a blank of its own, the next token would grow onto the one before.
    if (EndsToken(text[to])) {
        while (IsBlank(text[from - 1])) --from;
    }
    return ReplaceInTag(cursor.IsOnNode() ? 0 : cursor.pos, from, to, {});
}

bool CMarkupSTL::RemoveElem() {
    if (cursor.pos == 0 || cursor.IsOnNode()) return false;
    const std::int32_t previous = tree.Remove(cursor.pos);
    cursor = Cursor::On(cursor.posParent, previous);
    return true;
}

bool CMarkupSTL::RemoveChildElem() {
    if (cursor.posChild == 0) return false;
    cursor.posChild = EditBelow([&] { return tree.Remove(cursor.posChild); });
    return true;
}

bool CMarkupSTL::RemoveNode() {
    if (!cursor.IsOnNode()) return RemoveElem();
    tree.Replace({cursor.posParent, cursor.pos, cursor.nodeOffset}, cursor.nodeLength, {});
    cursor = Cursor::On(cursor.posParent, cursor.pos);
    return true;
}

} // namespace brixen::lyr::gen
