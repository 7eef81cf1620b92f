// Where characters begin, for whoever reads a text by units or has to cut it between two characters.
#pragma once

#include <cstddef>
#include <string_view>

namespace brixen::lyr::gen {

// Whether a byte of UTF-8 is the first of its character.
constexpr bool BeginsCharacter(char byte) { return (byte & 0xC0) != 0x80; }

// Of a unit of UTF-16 or of a code point.
constexpr bool IsSurrogate(char32_t code) { return code >= 0xD800 && code <= 0xDFFF; }
constexpr bool IsHighSurrogate(char32_t code) { return code >= 0xD800 && code <= 0xDBFF; }
constexpr bool IsLowSurrogate(char32_t code) { return code >= 0xDC00 && code <= 0xDFFF; }

// Whether a cut in front of the unit at `position` would part the halves of a surrogate pair.
constexpr bool SplitsPair(std::u16string_view text, std::size_t position) {
    return position > 0 && position < text.size() && IsHighSurrogate(text[position - 1]) &&
           IsLowSurrogate(text[position]);
}

// The text, or its first `count` units (1 or more) where it has more; one fewer if the last of those is a
// high surrogate.
constexpr std::u16string_view CutToUnits(std::u16string_view text, std::size_t count) {
    if (text.size() <= count) return text;
    return text.substr(0, IsHighSurrogate(text[count - 1]) ? count - 1 : count);
}

} // namespace brixen::lyr::gen
