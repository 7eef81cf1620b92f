#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

// How the dictionaries turn bytes into text. An encoding is a pointer to a 32-bit code: 1 means UTF-8; a null
// pointer and any other code mean the code page of the process. A failed conversion is raised as one of the
// codes below, a plain 32-bit integer.
namespace kestrel_private {

using EncodingCode = std::int32_t;
inline constexpr EncodingCode kEncodingUtf8 = 1;

using ConversionCode = std::int32_t;
inline constexpr ConversionCode kBufferCode = 0x42554646;  // `BUFF`: the output was too small
inline constexpr ConversionCode kFailureCode = 0x6875683F; // `huh?`: any other failure

// The conversions of one encoding. Lengths are without terminators, but for the one that says otherwise.
struct EncodingFunctions {
    std::size_t (*wideLength)(std::string_view bytes);
    std::size_t (*toWide)(std::string_view bytes, char16_t* output, std::size_t capacity);
    std::size_t (*bytesLengthPlusOne)(std::u16string_view wide);
    std::size_t (*toBytes)(std::u16string_view wide, char* output, std::size_t capacity);
    // Negative, zero or positive, by unit.
    int (*compare)(std::u16string_view left, std::u16string_view right);
};

const EncodingFunctions& FunctionsOf(const EncodingCode* encoding);

// Whole texts through the table.
std::u16string DecodeBytes(std::string_view bytes, const EncodingCode* encoding);
std::string EncodeText(std::u16string_view wide, const EncodingCode* encoding);

} // namespace kestrel_private
