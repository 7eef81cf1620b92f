// Where characters begin, for whoever has to cut a text between two of them.
#pragma once

#include <cstddef>
#include <string_view>

namespace brixen::lyr::gen {

// Whether a byte of UTF-8 is the first of its character.
constexpr bool BeginsCharacter(char byte) { return (byte & 0xC0) != 0x80; }

constexpr bool IsHighSurrogate(char16_t unit) { return (unit & 0xFC00) == 0xD800; }
constexpr bool IsLowSurrogate(char16_t unit) { return (unit & 0xFC00) == 0xDC00; }

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
