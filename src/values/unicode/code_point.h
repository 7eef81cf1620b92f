// One code point of Unicode: its surrogates in UTF-16 and its bytes in UTF-8.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace brixen::lyr::gen {

inline constexpr char32_t kLastBasicCode = 0xFFFF; // all that one unit of UTF-16 can hold
inline constexpr char32_t kLastCodePoint = 0x10FFFF;
inline constexpr char32_t kReplacementCharacter = 0xFFFD;

// Of a unit of UTF-16 or of a code point.
constexpr bool IsSurrogate(char32_t code) { return code >= 0xD800 && code <= 0xDFFF; }
constexpr bool IsHighSurrogate(char32_t code) { return code >= 0xD800 && code <= 0xDBFF; }
constexpr bool IsLowSurrogate(char32_t code) { return code >= 0xDC00 && code <= 0xDFFF; }

// The code point of a pair. Only the low ten bits of each unit count, so that any two units make one.
constexpr char32_t CodeOfPair(char32_t high, char32_t low) {
    return 0x10000 + ((high & 0x3FF) << 10 | (low & 0x3FF));
}
// The units of a code point above kLastBasicCode. Bits that do not fit into a pair are dropped.
constexpr char16_t HighSurrogateOf(char32_t code) {
    return static_cast<char16_t>(0xD800 | ((code - 0x10000) >> 10 & 0x3FF));
}
constexpr char16_t LowSurrogateOf(char32_t code) { return static_cast<char16_t>(0xDC00 | (code & 0x3FF)); }

// The bytes that a code point takes in UTF-8, 1 to 4.
constexpr std::size_t Utf8Length(char32_t code) {
    return code < 0x80 ? 1 : code < 0x800 ? 2 : code <= kLastBasicCode ? 3 : 4;
}

// Writes a code point as a sequence of `length` bytes, which is at least Utf8Length of it. `Byte` is char or
// std::uint8_t.
template <class Byte>
constexpr void WriteUtf8(char32_t code, std::size_t length, Byte* out) {
    constexpr std::array<std::uint8_t, 5> kLeadMark = {0x00, 0x00, 0xC0, 0xE0, 0xF0};
    for (std::size_t i = length - 1; i > 0; --i) {
        out[i] = static_cast<Byte>((code & 0x3F) | 0x80);
        code >>= 6;
    }
    out[0] = static_cast<Byte>(code | kLeadMark[length]);
}

} // namespace brixen::lyr::gen
