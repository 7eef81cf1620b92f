// Bytes as hexadecimal text: two upper-case digits for each byte, high nibble first.
#pragma once

#include <cstddef>

namespace brixen::pvn {

// Writes the digits of `length` bytes, without a terminator. `digits` has room for twice as many characters.
void EncodeHexadecimal(const void* bytes, std::size_t length, char* digits) noexcept;

// Reads the digits of `length` bytes and returns the number of bytes before the first pair that is no byte.
// Only 0 to 9 and A to F are digits. Writes only the bytes that it counts.
[[nodiscard]] std::size_t DecodeHexadecimal(const char* digits, void* bytes, std::size_t length) noexcept;

} // namespace brixen::pvn
