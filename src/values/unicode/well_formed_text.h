// The quick roads between the encodings for text that is legal, as nearly all text is. What is special is
// left to the careful converters of text_conversion.h, which begin where these stop.
#pragma once

#include "values/unicode/range_positions.h"

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace brixen::lyr::gen::legal_text {

using Byte = std::uint8_t;

// Convert as far as the text is legal and there is room for a block of any characters; what is behind the
// target's final position may be written too, up to its end.
RangePositions<Byte, char16_t> QuickUtf8ToUtf16(const Byte* source, const Byte* end, char16_t* target,
                                                const char16_t* targetEnd);
RangePositions<char16_t, Byte> QuickUtf16ToUtf8(const char16_t* source, const char16_t* end, Byte* target,
                                                const Byte* targetEnd);
// With less room than this they do nothing.
inline constexpr std::ptrdiff_t kQuickUnits = 16;
inline constexpr std::ptrdiff_t kQuickBytes = 40;

// How many units a legal text gives.
std::size_t Utf16Length(std::string_view utf8);
// How many bytes a text without unpaired surrogates gives.
std::size_t Utf8Length(std::u16string_view utf16);

} // namespace brixen::lyr::gen::legal_text
