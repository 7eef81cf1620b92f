// Fast conversion paths for well-formed text. They stop at anything that needs care and leave it to the
// converters of text_conversion.h. Private to the text conversion.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace brixen::lyr::gen {

// Convert as long as the text is well-formed and there is room for a block of any characters. `source` and
// `target` move as far as the conversion came. Room after the target's final position may have been written
// to, up to its end.
void ConvertWellFormedUtf8(const std::uint8_t*& source, const std::uint8_t* sourceEnd, char16_t*& target,
                           const char16_t* targetEnd);
void ConvertWellFormedUtf16(const char16_t*& source, const char16_t* sourceEnd, std::uint8_t*& target,
                            const std::uint8_t* targetEnd);
// With less room than this they do nothing.
inline constexpr std::ptrdiff_t kLeastUtf16Room = 16; // units
inline constexpr std::ptrdiff_t kLeastUtf8Room = 40;  // bytes

// The number of UTF-16 units of a well-formed text. For any other text the number is only a guess.
[[nodiscard]] std::size_t CountUtf16Units(std::string_view utf8);
// The number of UTF-8 bytes of a text without unpaired surrogates, which count as 2 bytes and not as 3.
[[nodiscard]] std::size_t CountUtf8Bytes(std::u16string_view utf16);

} // namespace brixen::lyr::gen
