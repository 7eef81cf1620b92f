// Names, data and attributes, found in the text when they are asked for.
#include "values/markup/document.h"

#include "values/markup/attributes.h"
#include "values/markup/escape.h"
#include "values/markup/tokens.h"

#include <optional>

namespace brixen::lyr::gen {
namespace {

// The text of the CDATA section that a content begins with.
std::optional<std::string_view> SectionIn(std::string_view content) {
    if (!content.starts_with(kCDataBegin)) return std::nullopt;
    const std::size_t end = content.find(kCDataEnd, kCDataBegin.size());
    if (end == std::string_view::npos) return std::nullopt;
    return content.substr(kCDataBegin.size(), end - kCDataBegin.size());
}

} // namespace

std::string_view CMarkupSTL::Node() const {
    return tree.Between(cursor.nodeOffset, std::ptrdiff_t{cursor.nodeOffset} + cursor.nodeLength);
}

std::string CMarkupSTL::GetTagName() const {
    if (cursor.IsOnNode()) return NodeName();
    return cursor.pos == 0 ? std::string() : std::string(tree.NameOf(cursor.pos));
}

std::string CMarkupSTL::NodeName() const {
    switch (cursor.nodeType) {
    case kMarkupText:
    case kMarkupWhiteSpace: return "#text";
    case kMarkupCData: return "#cdata-section";
    case kMarkupComment: return "#comment";
    default: break;
    }
    return std::string(TagNameAt(MarkupSpan(Node()), 1)); // after "<?" and "<!"
}

std::string CMarkupSTL::GetData() const {
    std::string room;
    return std::string(ViewData(room));
}

std::string CMarkupSTL::GetChildData() const {
    std::string room;
    return std::string(ElementData(cursor.posChild, room));
}

std::string_view CMarkupSTL::NodeData(std::string& room) const {
    const std::string_view content = NodeContent(cursor.nodeType, Node());
    if (cursor.nodeType != kMarkupText) return content;
    return UnescapedOrSame(MarkupSpan(content), 0, std::ssize(content), room);
}

std::string_view CMarkupSTL::ElementData(std::int32_t element, std::string& room) const {
    if (element == 0) return {};
    const ElemPos& place = tree[element];
    const std::ptrdiff_t begin = std::ptrdiff_t{place.startTagRight} + 1;
    const std::ptrdiff_t end = place.endTagLeft;
    if (place.firstChild != 0 || begin >= end) return {};
    const MarkupSpan text(GetDoc());
    const std::ptrdiff_t inked = text.SkipBlanks(begin);
    if (text[inked] == '<' && inked < end) {
        if (const auto section = SectionIn(text.Between(inked, end))) return *section;
    }
    return UnescapedOrSame(text, begin, end, room);
}

CMarkupSTL::TagRange CMarkupSTL::TagOf(std::int32_t element) const {
    if (element == 0) return {};
    return {std::ptrdiff_t{tree[element].startTagLeft} + 1, tree[element].startTagRight};
}

CMarkupSTL::TagRange CMarkupSTL::CurrentTag() const {
    if (!cursor.IsOnNode()) return TagOf(cursor.pos);
    if (cursor.nodeType != kMarkupProcessingInstruction) return {};
    const std::ptrdiff_t begin = std::ptrdiff_t{cursor.nodeOffset} + 2;
    return {begin, begin + cursor.nodeLength - 4};
}

std::string_view CMarkupSTL::AttributeIn(TagRange tag, std::string_view name, std::string& room) const {
    if (tag.begin == 0) return {};
    const MarkupSpan text(GetDoc());
    const AttributeValue value = FindAttributeValue(text, tag.begin, tag.end, name);
    return value.Exists() ? UnescapedOrSame(text, value.begin, value.end, room) : std::string_view();
}

std::string_view CMarkupSTL::ViewAttrib(MarkupText name, std::string& room) const {
    const TagRange tag = CurrentTag();
    // Most tags have no attributes: they need no more than this.
    if (tag.begin != 0 && HasNoValues(MarkupSpan(GetDoc()), tag.begin)) return {};
    return AttributeIn(tag, name, room);
}

std::string CMarkupSTL::GetAttrib(MarkupText name) const {
    std::string room;
    return std::string(ViewAttrib(name, room));
}

std::string CMarkupSTL::GetChildAttrib(MarkupText name) const {
    std::string room;
    return std::string(AttributeIn(TagOf(cursor.posChild), name, room));
}

std::string CMarkupSTL::GetAttribName(int index) const {
    const TagRange tag = CurrentTag();
    if (tag.begin == 0 || index < 0) return {};
    return std::string(AttributeNameAt(MarkupSpan(GetDoc()), tag.begin, index));
}

std::string CMarkupSTL::FindGetData(MarkupText path) { return FindElem(path) ? GetData() : std::string(); }

} // namespace brixen::lyr::gen
