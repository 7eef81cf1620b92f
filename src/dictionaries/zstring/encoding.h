// How the dictionaries convert between bytes and text.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

// An encoding is a pointer to a 32-bit code: 1 means UTF-8; a null pointer and any other code mean the code
// page of the process. A conversion that fails throws one of the conversion codes below, a plain 32-bit
// integer.
namespace kestrel_private {

using EncodingCode = std::int32_t;
inline constexpr EncodingCode kEncodingUtf8 = 1;

using ConversionCode = std::int32_t;
inline constexpr ConversionCode kBufferCode = 0x42554646; // `BUFF`: the output was too small
inline constexpr ConversionCode kFailureCode =
    0x6875683F; // `huh?`: any other failure, such as bytes that are no text

// The conversions of one encoding. Lengths are in UTF-16 units or bytes, without a terminator. The converters
// return how much they wrote.
struct EncodingFunctions {
    std::size_t (*wideLength)(std::string_view bytes);
    std::size_t (*toWide)(std::string_view bytes, char16_t* output, std::size_t capacity);
    std::size_t (*bytesLengthPlusOne)(std::u16string_view wide);
    std::size_t (*toBytes)(std::u16string_view wide, char* output, std::size_t capacity);
    // Compares unit by unit; the result is negative, zero or positive.
    int (*compare)(std::u16string_view left, std::u16string_view right);
};

// The conversions of an encoding, which live as long as the process.
const EncodingFunctions& FunctionsOf(const EncodingCode* encoding);

// Convert whole texts.
[[nodiscard]] std::u16string DecodeBytes(std::string_view bytes, const EncodingCode* encoding);
[[nodiscard]] std::string EncodeText(std::u16string_view wide, const EncodingCode* encoding);

} // namespace kestrel_private
