// The quick roads between the encodings for text that is legal, as nearly all text is. What is special is
// left to the careful converters of text_conversion.h, which begin where these stop.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace brixen::lyr::gen::legal_text {

using Byte = std::uint8_t;

constexpr bool IsSurrogate(char32_t code) { return code >= 0xD800 && code <= 0xDFFF; }
constexpr bool IsHighSurrogate(char32_t code) { return code >= 0xD800 && code <= 0xDBFF; }
constexpr bool IsLowSurrogate(char32_t code) { return code >= 0xDC00 && code <= 0xDFFF; }

// Convert as far as there is room for any character and the text is legal, and move both positions.
void QuickUtf8ToUtf16(const Byte*& sourceAt, const Byte* end, char16_t*& targetAt, const char16_t* targetEnd);
void QuickUtf16ToUtf8(const char16_t*& sourceAt, const char16_t* end, Byte*& targetAt, const Byte* targetEnd);
// How many units a legal text gives.
std::size_t Utf16Length(std::string_view utf8);
// How many bytes a text without unpaired surrogates gives.
std::size_t Utf8Length(std::u16string_view utf16);

} // namespace brixen::lyr::gen::legal_text
