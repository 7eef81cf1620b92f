#include "workflow/controls/link_label.h"

#include "values/unicode/ascii.h"

#include <algorithm>

namespace brixen::pvn::pvn_workflow {

using zeve::platform::Rectangle;

namespace {

constexpr std::u16string_view kOpeningTag = u"<a>", kClosingTag = u"</a>"; // compared in small letters
constexpr char16_t kAccessMark = u'&';

std::size_t FindTag(std::u16string_view text, std::u16string_view tag, std::size_t from) {
    const auto isSame = [](char16_t unit, char16_t ofTag) { return lyr::gen::ToAsciiLower(unit) == ofTag; };
    const auto begin = text.begin() + static_cast<std::ptrdiff_t>(from);
    const auto found = std::search(begin, text.end(), tag.begin(), tag.end(), isSame);
    return found != text.end() ? static_cast<std::size_t>(found - text.begin()) : text.npos;
}

// Reflects an area between the left edge and the end of the label.
Rectangle Reflected(const Rectangle& area, std::int32_t left, std::int32_t end) {
    return {left + end - area.right, area.top, left + end - area.left, area.bottom};
}

Rectangle Moved(const Rectangle& area, std::int32_t shift) {
    return {area.left + shift, area.top, area.right + shift, area.bottom};
}

std::int32_t Shift(std::int32_t slack, LabelAlignment alignment) {
    if (slack <= 0 || alignment == LabelAlignment::kLeft) return 0;
    return alignment == LabelAlignment::kCenter ? slack / 2 : slack;
}

} // namespace

LabelParts SplitLabel(std::u16string_view label) {
    const std::size_t opening = FindTag(label, kOpeningTag, 0);
    if (opening == label.npos) return {label, {}, {}};
    const std::size_t link = opening + kOpeningTag.size();
    const std::size_t closing = FindTag(label, kClosingTag, link);
    if (closing == label.npos) return {label, {}, {}};
    return {label.substr(0, opening), label.substr(link, closing - link),
            label.substr(closing + kClosingTag.size())};
}

bool HasAccessKey(std::u16string_view label) {
    for (std::size_t i = 0; i + 1 < label.size(); ++i) {
        if (label[i] != kAccessMark) continue;
        if (label[++i] != kAccessMark) return true;
    }
    return false;
}

std::u16string WithoutAccessMarks(std::u16string_view label) {
    std::u16string text;
    text.reserve(label.size());
    for (std::size_t i = 0; i < label.size(); ++i) {
        if (label[i] == kAccessMark && ++i == label.size()) break;
        text.push_back(label[i]);
    }
    return text;
}

LabelAreas AlignLabel(const LabelAreas& measured, const Rectangle& client, LabelAlignment alignment,
                      bool isReadFromRight) {
    const std::int32_t end = measured.after.right;
    const std::int32_t shift = Shift(client.right - end, alignment);
    const auto place = [&](const Rectangle& area) {
        return Moved(isReadFromRight ? Reflected(area, client.left, end) : area, shift);
    };
    return {place(measured.before), place(measured.link), place(measured.after)};
}

} // namespace brixen::pvn::pvn_workflow
