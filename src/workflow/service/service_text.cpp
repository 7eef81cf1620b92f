#include "workflow/service/service_text.h"

#include "values/unicode/ascii.h"
#include "values/unicode/character_borders.h"
#include "values/unicode/text_conversion.h"

#include <algorithm>

namespace brixen::pvn::pvn_workflow {

namespace {

constexpr std::size_t kLongestConfirmation = 32;

struct UnitRange {
    char16_t first, last;
};

// Controls, marks and overrides of direction, separators of lines, invisible operators, the byte-order mark,
// the notes between characters, and the first half of every invisible tag.
constexpr UnitRange kUnshowable[] = {
    {0x0000, 0x001F}, {0x007F, 0x009F}, {0x00AD, 0x00AD}, {0x061C, 0x061C},
    {0x200B, 0x200F}, {0x2028, 0x202E}, {0x2060, 0x206F}, {0xFEFF, 0xFEFF},
    {0xFFF0, 0xFFFB}, {0xFFFE, 0xFFFF}, {0xDB40, 0xDB43},
};

bool IsUnshowable(char16_t unit) {
    return std::ranges::any_of(kUnshowable,
                               [unit](UnitRange range) { return unit >= range.first && unit <= range.last; });
}

bool IsOfConfirmation(char byte) {
    return lyr::gen::IsAsciiDigit(byte) || lyr::gen::IsAsciiLetter(byte) || byte == '-';
}

} // namespace

bool IsShowable(std::string_view text, std::size_t longest) {
    std::u16string wide;
    try {
        wide = lyr::gen::ToUtf16(text);
    } catch (const lyr::gen::illegal_utf_sequence&) {
        return false;
    }
    const auto characters = static_cast<std::size_t>(
        std::ranges::count_if(wide, [](char16_t unit) { return !lyr::gen::IsLowSurrogate(unit); }));
    return characters > 0 && characters <= longest && std::ranges::none_of(wide, IsUnshowable);
}

std::u16string NeutralLine(std::u16string_view text) {
    std::u16string line;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char16_t unit = text[i];
        const bool isPair = lyr::gen::SplitsPair(text, i + 1);
        if (unit == u'\t' || unit == u'\n' || unit == u'\r') {
            line += u' ';
        } else if (IsUnshowable(unit) || (lyr::gen::IsSurrogate(unit) && !isPair)) {
            line += static_cast<char16_t>(lyr::gen::kReplacementCharacter);
        } else {
            line += text.substr(i, isPair ? 2 : 1);
        }
        if (isPair) ++i;
    }
    return line;
}

bool IsConfirmationNumber(std::string_view text) {
    return !text.empty() && text.size() <= kLongestConfirmation &&
           std::ranges::all_of(text, IsOfConfirmation);
}

std::string TextForStatic(std::string_view text) {
    std::string shown;
    for (const char byte : text) shown.append(byte == '&' ? 2 : 1, byte);
    return shown;
}

} // namespace brixen::pvn::pvn_workflow
