#include "workflow/service/service_text.h"

#include "values/unicode/ascii.h"
#include "values/unicode/character_borders.h"
#include "values/unicode/text_conversion.h"

#include <algorithm>

namespace brixen::pvn::pvn_workflow {

namespace {

constexpr std::size_t kLongestConfirmation = 32;

struct CodeRange {
    char32_t first, last;
};

// Controls, marks and overrides of direction, separators of lines, invisible operators, halves of pairs, the
// byte-order mark, the notes between characters, and invisible tags. Joiners, soft hyphens and selectors of
// variants are part of ordinary text in many languages, and hide nothing.
constexpr CodeRange kUnshowable[] = {
    {0x0000, 0x001F}, {0x007F, 0x009F},   {0x061C, 0x061C},   {0x200B, 0x200B}, {0x200E, 0x200F},
    {0x2028, 0x202E}, {0x2060, 0x206F},   {0xD800, 0xDFFF},   {0xFEFF, 0xFEFF}, {0xFFF0, 0xFFFB},
    {0xFFFE, 0xFFFF}, {0xE0000, 0xE00FF}, {0xE01F0, 0xE0FFF},
};

bool IsUnshowable(char32_t code) {
    return std::ranges::any_of(kUnshowable,
                               [code](CodeRange range) { return code >= range.first && code <= range.last; });
}

// The character that begins at `position`; half a pair alone is one too.
std::u16string_view CharacterAt(std::u16string_view text, std::size_t position) {
    return text.substr(position, lyr::gen::SplitsPair(text, position + 1) ? 2 : 1);
}

char32_t CodeOf(std::u16string_view character) {
    return character.size() == 2 ? lyr::gen::CodeOfPair(character[0], character[1]) : character[0];
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
    std::size_t count = 0;
    for (std::size_t i = 0; i < wide.size(); ++count) {
        const std::u16string_view character = CharacterAt(wide, i);
        if (IsUnshowable(CodeOf(character))) return false;
        i += character.size();
    }
    return count > 0 && count <= longest;
}

std::u16string NeutralLine(std::u16string_view text) {
    std::u16string line;
    for (std::size_t i = 0; i < text.size();) {
        const std::u16string_view character = CharacterAt(text, i);
        if (character == u"\t" || character == u"\n" || character == u"\r") {
            line += u' ';
        } else if (IsUnshowable(CodeOf(character))) {
            line += static_cast<char16_t>(lyr::gen::kReplacementCharacter);
        } else {
            line += character;
        }
        i += character.size();
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
