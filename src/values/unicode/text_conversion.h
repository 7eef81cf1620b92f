// Strict conversion between the encodings of Unicode: every sequence is checked, and failures are reported.
// All functions are pure and may be called from any thread. The conversion that never fails is in
// values/unicode/lenient_text.h.
#pragma once

#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>

namespace brixen::lyr::gen {

// How a range converter ended. The numbers are part of the contract.
enum class ConversionResult : int {
    ConversionOk = 0,    // the whole source was converted
    SourceExhausted = 1, // the source ends inside a sequence; the source position is its start
    TargetExhausted = 2, // the target is full; the source position is the sequence that did not fit
    SourceIllegal = 3,   // an illegal sequence; the source position is its start
};

// Thrown for a source that is not legal in its encoding, and for a target without any room. Messages: "Bad
// UTF-8 sequence.", "Bad UTF-16 sequence.", "Empty target buffer.".
class illegal_utf_sequence : public std::runtime_error {
public:
    explicit illegal_utf_sequence(const std::string& text) : std::runtime_error(text), message(text) {}
    const char* what() const noexcept override { return message.c_str(); }

private:
    std::string message;
};

// Range converters. `source` and `target` move as far as the conversion came, whatever the result. Room after
// the final target position, up to the target's end, may have been written to.
//
// Strict conversion refuses surrogate code points in UTF-8 and UTF-32 and unpaired surrogates in UTF-16; with
// `lenient` they pass. Code points above 0x10FFFF are illegal in strict mode. With `lenient`
// ConvertUtf32ToUtf16 writes 0xFFFD for them; UTF-8 has no lenient form for them. Kept: ConvertUtf16ToUtf8
// encodes a high surrogate that is the very last unit even in strict mode.
[[nodiscard]] ConversionResult ConvertUtf8ToUtf16(const std::uint8_t*& source, const std::uint8_t* sourceEnd,
                                                  char16_t*& target, char16_t* targetEnd, bool lenient);
[[nodiscard]] ConversionResult ConvertUtf16ToUtf8(const char16_t*& source, const char16_t* sourceEnd,
                                                  std::uint8_t*& target, std::uint8_t* targetEnd,
                                                  bool lenient);
[[nodiscard]] ConversionResult ConvertUtf32ToUtf16(const char32_t*& source, const char32_t* sourceEnd,
                                                   char16_t*& target, char16_t* targetEnd, bool lenient);
[[nodiscard]] ConversionResult ConvertUtf16ToUtf32(const char16_t*& source, const char16_t* sourceEnd,
                                                   char32_t*& target, char32_t* targetEnd, bool lenient);
[[nodiscard]] ConversionResult ConvertUtf32ToUtf8(const char32_t*& source, const char32_t* sourceEnd,
                                                  std::uint8_t*& target, std::uint8_t* targetEnd,
                                                  bool lenient);
// Always strict.
[[nodiscard]] ConversionResult ConvertUtf8ToUtf32(const std::uint8_t*& source, const std::uint8_t* sourceEnd,
                                                  char32_t*& target, char32_t* targetEnd);

// Whether the `length` bytes (1 to 4) are one legal sequence. The three-byte forms of surrogates are legal
// here; the converters accept or refuse them by their mode.
[[nodiscard]] bool IsLegalUtf8(const std::uint8_t* bytes, std::size_t length);
// Whether the sequence that begins at `bytes` ends before `end` and is legal.
[[nodiscard]] bool IsLegalUtf8Sequence(const std::uint8_t* bytes, const std::uint8_t* end);

// How far a range conversion came.
template <class Source, class Target>
struct RangePositions {
    const Source* source;
    Target* target;
};

// Range converters that throw illegal_utf_sequence for an illegal source, and for an empty target when there
// is something to convert. A source that ends inside a sequence, or a target that is full, shows in the
// positions alone.
[[nodiscard]] RangePositions<std::uint8_t, char16_t> Utf8RangeToUtf16(const std::uint8_t* source,
                                                                      const std::uint8_t* sourceEnd,
                                                                      char16_t* target, char16_t* targetEnd,
                                                                      bool lenient);
[[nodiscard]] RangePositions<char16_t, std::uint8_t> Utf16RangeToUtf8(const char16_t* source,
                                                                      const char16_t* sourceEnd,
                                                                      std::uint8_t* target,
                                                                      std::uint8_t* targetEnd, bool lenient);

// Whole texts, embedded NULs included. Throw illegal_utf_sequence with the message of the source's encoding,
// also for a UTF-8 text that ends inside a sequence.
[[nodiscard]] std::string ToUtf8(std::u16string_view wide, bool lenient = false);
[[nodiscard]] std::u16string ToUtf16(std::string_view narrow, bool lenient = false);

} // namespace brixen::lyr::gen
