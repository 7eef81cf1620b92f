// Where characters begin, for code that reads a text by units or cuts it between two characters.
#pragma once

#include "values/unicode/code_point.h"

#include <cstddef>
#include <string_view>

namespace brixen::lyr::gen {

// Whether a byte of UTF-8 is the first of its character.
constexpr bool BeginsCharacter(char byte) { return (byte & 0xC0) != 0x80; }

// Whether a cut before the unit at `position` would part the halves of a surrogate pair.
constexpr bool SplitsPair(std::u16string_view text, std::size_t position) {
    return position > 0 && position < text.size() && IsHighSurrogate(text[position - 1]) &&
           IsLowSurrogate(text[position]);
}

// The first `count` units (1 or more) of a text, or all of a shorter one. One unit fewer where the last would
// be a high surrogate.
constexpr std::u16string_view CutToUnits(std::u16string_view text, std::size_t count) {
    if (text.size() <= count) return text;
    return text.substr(0, IsHighSurrogate(text[count - 1]) ? count - 1 : count);
}

// The first `count` bytes of a text in UTF-8, or all of a shorter one. Fewer where a character would be cut.
constexpr std::string_view CutToBytes(std::string_view text, std::size_t count) {
    if (text.size() <= count) return text;
    while (count > 0 && !BeginsCharacter(text[count])) --count;
    return text.substr(0, count);
}

// The first character of a text in UTF-8; nothing of an empty one.
constexpr std::string_view FirstCharacter(std::string_view text) {
    std::size_t size = text.empty() ? 0 : 1;
    while (size < text.size() && !BeginsCharacter(text[size])) ++size;
    return text.substr(0, size);
}

} // namespace brixen::lyr::gen
