// Names, data and attributes, found in the text when they are asked for.
#include "values/markup/attributes.h"
#include "values/markup/document.h"
#include "values/markup/escape.h"
#include "values/markup/tokens.h"

#include <optional>

namespace brixen::lyr::gen {
namespace {

// What is between fences, nothing when they overlap.
std::string_view Inside(std::string_view node, std::size_t head, std::size_t tail) {
    return node.size() < head + tail ? std::string_view() : node.substr(head, node.size() - head - tail);
}

// What is between the fences of the CDATA section that a content begins with.
std::optional<std::string_view> SectionIn(std::string_view content) {
    if (!content.starts_with(kCDataBegin)) return std::nullopt;
    const std::size_t end = content.find(kCDataEnd, kCDataBegin.size());
    if (end == std::string_view::npos) return std::nullopt;
    return content.substr(kCDataBegin.size(), end - kCDataBegin.size());
}

} // namespace

std::string_view CMarkupSTL::Between(std::ptrdiff_t begin, std::ptrdiff_t end) const {
    return {document.data() + begin, static_cast<std::size_t>(end - begin)};
}

std::string CMarkupSTL::GetTagName() const {
    if (cursor.IsOnNode()) return NodeName();
    return cursor.pos == 0 ? std::string() : std::string(NameOf(cursor.pos));
}

std::string CMarkupSTL::NodeName() const {
    const std::ptrdiff_t nameless = 2; // behind "<?" and "<!"
    switch (cursor.nodeType) {
    case kMarkupText:
    case kMarkupWhiteSpace: return "#text";
    case kMarkupCData: return "#cdata-section";
    case kMarkupComment: return "#comment";
    default: break;
    }
    const MarkupSpan text(Between(cursor.nodeOffset, std::ptrdiff_t{cursor.nodeOffset} + cursor.nodeLength));
    return std::string(TagNameAt(text, nameless - 1));
}

std::string CMarkupSTL::GetData() const {
    std::string room;
    return std::string(ViewData(room));
}

std::string CMarkupSTL::GetChildData() const {
    std::string room;
    return std::string(DataOf(cursor.posChild, room));
}

std::string_view CMarkupSTL::NodeData(std::string& room) const {
    const MarkupSpan text(document);
    const std::ptrdiff_t begin = cursor.nodeOffset;
    const std::ptrdiff_t end = begin + cursor.nodeLength;
    const std::string_view node = text.Between(begin, end);
    switch (cursor.nodeType) {
    case kMarkupComment: return Inside(node, 4, 3);
    case kMarkupProcessingInstruction: return Inside(node, 2, 2);
    case kMarkupCData: return Inside(node, kCDataBegin.size(), kCDataEnd.size());
    case kMarkupText: return UnescapedOrSame(text, begin, end, room);
    default: return node;
    }
}

std::string_view CMarkupSTL::DataOf(std::int32_t element, std::string& room) const {
    if (element == 0) return {};
    const ElemPos& place = table[element];
    const std::ptrdiff_t begin = std::ptrdiff_t{place.startTagRight} + 1;
    const std::ptrdiff_t end = place.endTagLeft;
    if (place.firstChild != 0 || begin >= end) return {};
    const MarkupSpan text(document);
    const std::ptrdiff_t inked = text.SkipBlanks(begin);
    if (text[inked] == '<' && inked < end) {
        if (const auto section = SectionIn(text.Between(inked, end))) return *section;
    }
    return UnescapedOrSame(text, begin, end, room);
}

CMarkupSTL::TagRange CMarkupSTL::TagOf(std::int32_t element) const {
    if (element == 0) return kNoTag;
    return {std::ptrdiff_t{table[element].startTagLeft} + 1, table[element].startTagRight};
}

CMarkupSTL::TagRange CMarkupSTL::CurrentTag() const {
    if (!cursor.IsOnNode()) return TagOf(cursor.pos);
    if (cursor.nodeType != kMarkupProcessingInstruction) return kNoTag;
    const std::ptrdiff_t begin = std::ptrdiff_t{cursor.nodeOffset} + 2;
    return {begin, begin + cursor.nodeLength - 4};
}

std::string_view CMarkupSTL::AttributeIn(TagRange tag, std::string_view name, std::string& room) const {
    if (tag.begin == 0) return {};
    const MarkupSpan text(document);
    const AttributeValue value = FindAttributeValue(text, tag.begin, tag.end, name);
    return value.Exists() ? UnescapedOrSame(text, value.begin, value.end, room) : std::string_view();
}

std::string_view CMarkupSTL::ViewAttrib(MarkupText name, std::string& room) const {
    const TagRange tag = CurrentTag();
    // Most tags have none: they need no more than this.
    if (tag.begin != 0 && HasNoValues(MarkupSpan(document), tag.begin)) return {};
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
    return std::string(AttributeNameAt(MarkupSpan(document), tag.begin, index));
}

std::string CMarkupSTL::FindGetData(MarkupText path) { return FindElem(path) ? GetData() : std::string(); }

} // namespace brixen::lyr::gen
