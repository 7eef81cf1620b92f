#pragma once

#include "values/unicode/range_positions.h"

#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>

// Strict conversion between the encodings of Unicode: every sequence is checked, and the caller is told.
// All functions are pure and may be called from any thread. The forgiving family is in values/unicode/light_text.h.
namespace brixen::lyr::gen {

// How a range converter ended. The numbers are part of the contract.
enum class ConversionResult : int {
    ConversionOk = 0,    // the whole source was converted
    SourceExhausted = 1, // the source ends inside a sequence; the source position stands at its start
    TargetExhausted = 2, // the target is full; the source position stands at what did not fit
    SourceIllegal = 3,   // an illegal sequence; the source position stands at its start
};

// The text handed over is not in the encoding it was said to be in, or there is no room at all for the
// result. Messages: "Bad UTF-8 sequence.", "Bad UTF-16 sequence.", "Empty target buffer.".
class illegal_utf_sequence : public std::runtime_error {
public:
    explicit illegal_utf_sequence(const std::string& message)
        : std::runtime_error(message), fMessage(message) {}
    const char* what() const noexcept override { return fMessage.c_str(); }

private:
    std::string fMessage;
};

// Range converters. `source` and `target` move as far as the conversion came, whatever the result; room
// behind the final target position, up to the target's end, may have been written to. Strict conversion
// refuses surrogate code points in UTF-8 and UTF-32 and unpaired surrogates in UTF-16; with `lenient` they
// pass. One kept asymmetry: ConvertUtf16ToUtf8 encodes a high surrogate that is the very last unit, strict or
// not. Code points above 0x10FFFF are illegal in strict mode; to UTF-16, lenient, they give 0xFFFD; UTF-8 has
// no lenient form for them.
ConversionResult ConvertUtf8ToUtf16(const std::uint8_t*& source, const std::uint8_t* sourceEnd,
                                    char16_t*& target, char16_t* targetEnd, bool lenient);
ConversionResult ConvertUtf16ToUtf8(const char16_t*& source, const char16_t* sourceEnd, std::uint8_t*& target,
                                    std::uint8_t* targetEnd, bool lenient);
ConversionResult ConvertUtf32ToUtf16(const char32_t*& source, const char32_t* sourceEnd, char16_t*& target,
                                     char16_t* targetEnd, bool lenient);
ConversionResult ConvertUtf16ToUtf32(const char16_t*& source, const char16_t* sourceEnd, char32_t*& target,
                                     char32_t* targetEnd, bool lenient);
ConversionResult ConvertUtf32ToUtf8(const char32_t*& source, const char32_t* sourceEnd, std::uint8_t*& target,
                                    std::uint8_t* targetEnd, bool lenient);
// Always strict.
ConversionResult ConvertUtf8ToUtf32(const std::uint8_t*& source, const std::uint8_t* sourceEnd,
                                    char32_t*& target, char32_t* targetEnd);

// Whether the `length` bytes (1 to 4) are one legal sequence. The three-byte forms of surrogates count as
// legal here; the converters deal with them by their mode.
bool IsLegalUtf8(const std::uint8_t* bytes, std::size_t length);
// Whether the sequence that begins at `bytes` lies wholly before `end` and is legal.
bool IsLegalUtf8Sequence(const std::uint8_t* bytes, const std::uint8_t* end);

// Range converters that throw illegal_utf_sequence for an illegal source, and for an empty target when there
// is something to convert. A source that ends inside a sequence, or a target that is full, shows in the
// positions alone.
RangePositions<std::uint8_t, char16_t> Utf8RangeToUtf16(const std::uint8_t* source,
                                                        const std::uint8_t* sourceEnd, char16_t* target,
                                                        char16_t* targetEnd, bool lenient);
RangePositions<char16_t, std::uint8_t> Utf16RangeToUtf8(const char16_t* source, const char16_t* sourceEnd,
                                                        std::uint8_t* target, std::uint8_t* targetEnd,
                                                        bool lenient);

// Whole texts, embedded NULs included. Throw illegal_utf_sequence with the message of the source's encoding;
// a UTF-8 text that ends inside a sequence is refused in the same way.
std::string ToUtf8(std::u16string_view wide, bool lenient = false);
std::u16string ToUtf16(std::string_view narrow, bool lenient = false);

} // namespace brixen::lyr::gen
