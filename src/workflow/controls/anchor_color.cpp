#include "workflow/controls/anchor_color.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <string_view>

namespace brixen::pvn::pvn_workflow {

namespace {

constexpr std::size_t kMostUnits = platform::UserSetting::kMostBytes / sizeof(char16_t);
constexpr std::uint32_t kMostOfAColor = 255;

bool IsDigit(char16_t unit) { return unit >= u'0' && unit <= u'9'; }

void SkipBlanks(std::u16string_view& text) {
    while (!text.empty() && text.front() == u' ') text.remove_prefix(1);
}

bool TakeComma(std::u16string_view& text) {
    if (text.empty() || text.front() != u',') return false;
    text.remove_prefix(1);
    return true;
}

// Takes a number and the blanks around it.
std::optional<std::uint32_t> TakeNumber(std::u16string_view& text) {
    SkipBlanks(text);
    if (text.empty() || !IsDigit(text.front())) return {};
    std::uint32_t number = 0;
    for (; !text.empty() && IsDigit(text.front()); text.remove_prefix(1)) {
        number = number * 10 + (text.front() - u'0');
        if (number > kMostOfAColor) return {};
    }
    SkipBlanks(text);
    return number;
}

std::optional<platform::Color> ColorOfText(std::u16string_view text) {
    platform::Color color = 0;
    for (int shift = 0; shift <= 16; shift += 8) {
        if (shift > 0 && !TakeComma(text)) return {};
        const auto number = TakeNumber(text);
        if (!number) return {};
        color |= *number << shift;
    }
    if (!text.empty()) return {};
    return color;
}

} // namespace

std::optional<platform::Color> ColorOfSetting(const platform::UserSetting& setting) {
    const bool isText =
        setting.type == platform::kSettingText || setting.type == platform::kSettingExpandableText;
    if (!isText || setting.size > platform::UserSetting::kMostBytes || setting.size % 2 != 0) return {};
    std::array<char16_t, kMostUnits> units{};
    std::memcpy(units.data(), setting.bytes.data(), setting.size);
    const std::u16string_view whole(units.data(), setting.size / sizeof(char16_t));
    if (whole.empty() || whole.back() != u'\0') return {};
    return ColorOfText(whole.substr(0, whole.find(u'\0')));
}

} // namespace brixen::pvn::pvn_workflow
