#include "values/unicode/text_conversion.h"

#include "values/unicode/character_borders.h"
#include "values/unicode/well_formed_text.h"

#include <algorithm>
#include <array>

namespace brixen::lyr::gen {
namespace {

using legal_text::Byte;
using legal_text::QuickUtf16ToUtf8;
using legal_text::QuickUtf8ToUtf16;

constexpr char32_t kReplacement = 0xFFFD;
constexpr char32_t kLastBmp = 0xFFFF;
constexpr char32_t kLastCodePoint = 0x10FFFF;

constexpr std::array<Byte, 256> MakeTrailingCounts() {
    std::array<Byte, 256> counts{};
    for (std::size_t lead = 0; lead < counts.size(); ++lead) {
        counts[lead] = static_cast<Byte>((lead >= 0xC0) + (lead >= 0xE0) + (lead >= 0xF0) + (lead >= 0xF8) +
                                         (lead >= 0xFC));
    }
    return counts;
}

// How many bytes follow each lead byte.
constexpr std::array<Byte, 256> kTrailingCount = MakeTrailingCounts();
// What the marks of lead and trailing bytes add up to in a sequence with that many trailing bytes.
constexpr std::array<char32_t, 6> kSequenceOffset = {0x00000000, 0x00003080, 0x000E2080,
                                                     0x03C82080, 0xFA082080, 0x82082080};
// The mark of the first byte of a sequence of that length.
constexpr std::array<Byte, 7> kFirstByteMark = {0x00, 0x00, 0xC0, 0xE0, 0xF0, 0xF8, 0xFC};

constexpr Byte LowestSecondByte(Byte lead) { return lead == 0xE0 ? 0xA0 : lead == 0xF0 ? 0x90 : 0x80; }
constexpr Byte HighestSecondByte(Byte lead) { return lead == 0xF4 ? 0x8F : 0xBF; }
constexpr bool IsTrailing(Byte byte) { return (byte & 0xC0) == 0x80; }

struct Decoded {
    ConversionResult result;
    char32_t code;
    std::ptrdiff_t length;
};

Decoded DecodeSequence(const Byte* source, const Byte* end) {
    const std::ptrdiff_t length = kTrailingCount[*source] + 1;
    if (length > end - source) return {ConversionResult::SourceExhausted, 0, 0};
    if (!IsLegalUtf8(source, static_cast<std::size_t>(length)))
        return {ConversionResult::SourceIllegal, 0, 0};
    char32_t code = 0;
    for (std::ptrdiff_t i = 0; i < length; ++i) code = (code << 6) + source[i];
    return {ConversionResult::ConversionOk, code - kSequenceOffset[static_cast<std::size_t>(length - 1)],
            length};
}

constexpr std::ptrdiff_t Utf8Length(char32_t code) {
    return code < 0x80 ? 1 : code < 0x800 ? 2 : code < 0x10000 ? 3 : 4;
}

void EncodeSequence(char32_t code, std::ptrdiff_t length, Byte* target) {
    for (std::ptrdiff_t i = length - 1; i > 0; --i) {
        target[i] = static_cast<Byte>((code & 0x3F) | 0x80);
        code >>= 6;
    }
    target[0] = static_cast<Byte>(code | kFirstByteMark[static_cast<std::size_t>(length)]);
}

// Writes one code point as one or two units; false when there is no room for it.
bool PutUtf16(char32_t code, char16_t*& target, const char16_t* end) {
    if (code <= kLastBmp) {
        if (target == end) return false;
        *target++ = static_cast<char16_t>(code);
        return true;
    }
    if (end - target < 2) return false;
    code -= 0x10000;
    *target++ = static_cast<char16_t>(0xD800 + (code >> 10));
    *target++ = static_cast<char16_t>(0xDC00 + (code & 0x3FF));
    return true;
}

bool PutUtf8(char32_t code, Byte*& target, const Byte* end) {
    const std::ptrdiff_t length = Utf8Length(code);
    if (end - target < length) return false;
    EncodeSequence(code, length, target);
    target += length;
    return true;
}

// A code point at a position of UTF-16; a high surrogate as the very last unit stands for itself.
Decoded DecodePair(const char16_t* source, const char16_t* end, bool lenient) {
    const char32_t unit = *source;
    if (!IsSurrogate(unit)) return {ConversionResult::ConversionOk, unit, 1};
    if (IsHighSurrogate(unit) && end - source > 1) {
        const char32_t next = source[1];
        if (IsLowSurrogate(next)) {
            return {ConversionResult::ConversionOk, 0x10000 + ((unit - 0xD800) << 10) + (next - 0xDC00), 2};
        }
        if (!lenient) return {ConversionResult::SourceIllegal, 0, 0};
    } else if (IsLowSurrogate(unit) && !lenient) {
        return {ConversionResult::SourceIllegal, 0, 0};
    }
    return {ConversionResult::ConversionOk, unit, 1};
}

[[noreturn]] void ThrowBadUtf8() { throw illegal_utf_sequence("Bad UTF-8 sequence."); }
[[noreturn]] void ThrowBadUtf16() { throw illegal_utf_sequence("Bad UTF-16 sequence."); }
[[noreturn]] void ThrowEmptyTarget() { throw illegal_utf_sequence("Empty target buffer."); }

} // namespace

bool IsLegalUtf8(const std::uint8_t* bytes, std::size_t length) {
    if (length < 1 || length > 4) return false;
    const Byte lead = bytes[0];
    if ((lead >= 0x80 && lead <= 0xC1) || lead > 0xF4) return false;
    for (std::size_t i = 2; i < length; ++i) {
        if (!IsTrailing(bytes[i])) return false;
    }
    return length == 1 || (bytes[1] >= LowestSecondByte(lead) && bytes[1] <= HighestSecondByte(lead));
}

bool IsLegalUtf8Sequence(const std::uint8_t* bytes, const std::uint8_t* end) {
    if (bytes == end) return false;
    const std::ptrdiff_t length = kTrailingCount[*bytes] + 1;
    return length <= end - bytes && IsLegalUtf8(bytes, static_cast<std::size_t>(length));
}

ConversionResult ConvertUtf8ToUtf16(const std::uint8_t*& source, const std::uint8_t* sourceEnd,
                                    char16_t*& target, char16_t* targetEnd, bool lenient) {
    while (source != sourceEnd) {
        const auto quick = QuickUtf8ToUtf16(source, sourceEnd, target, targetEnd);
        source = quick.source;
        target = quick.target;
        if (source == sourceEnd) break;
        const Decoded decoded = DecodeSequence(source, sourceEnd);
        if (decoded.result != ConversionResult::ConversionOk) return decoded.result;
        if (target == targetEnd) return ConversionResult::TargetExhausted;
        if (!lenient && IsSurrogate(decoded.code)) return ConversionResult::SourceIllegal;
        if (!PutUtf16(decoded.code, target, targetEnd)) return ConversionResult::TargetExhausted;
        source += decoded.length;
    }
    return ConversionResult::ConversionOk;
}

ConversionResult ConvertUtf16ToUtf8(const char16_t*& source, const char16_t* sourceEnd, std::uint8_t*& target,
                                    std::uint8_t* targetEnd, bool lenient) {
    while (source != sourceEnd) {
        const auto quick = QuickUtf16ToUtf8(source, sourceEnd, target, targetEnd);
        source = quick.source;
        target = quick.target;
        if (source == sourceEnd) break;
        const Decoded decoded = DecodePair(source, sourceEnd, lenient);
        if (decoded.result != ConversionResult::ConversionOk) return decoded.result;
        if (!PutUtf8(decoded.code, target, targetEnd)) return ConversionResult::TargetExhausted;
        source += decoded.length;
    }
    return ConversionResult::ConversionOk;
}

ConversionResult ConvertUtf32ToUtf16(const char32_t*& source, const char32_t* sourceEnd, char16_t*& target,
                                     char16_t* targetEnd, bool lenient) {
    for (; source != sourceEnd; ++source) {
        char32_t code = *source;
        if (target == targetEnd) return ConversionResult::TargetExhausted;
        if (!lenient && (IsSurrogate(code) || code > kLastCodePoint)) return ConversionResult::SourceIllegal;
        if (code > kLastCodePoint) code = kReplacement;
        if (!PutUtf16(code, target, targetEnd)) return ConversionResult::TargetExhausted;
    }
    return ConversionResult::ConversionOk;
}

ConversionResult ConvertUtf16ToUtf32(const char16_t*& source, const char16_t* sourceEnd, char32_t*& target,
                                     char32_t* targetEnd, bool lenient) {
    while (source != sourceEnd) {
        if (!lenient && IsHighSurrogate(*source) && sourceEnd - source == 1) {
            return ConversionResult::SourceExhausted;
        }
        const Decoded decoded = DecodePair(source, sourceEnd, lenient);
        if (decoded.result != ConversionResult::ConversionOk) return decoded.result;
        if (target == targetEnd) return ConversionResult::TargetExhausted;
        *target++ = decoded.code;
        source += decoded.length;
    }
    return ConversionResult::ConversionOk;
}

ConversionResult ConvertUtf32ToUtf8(const char32_t*& source, const char32_t* sourceEnd, std::uint8_t*& target,
                                    std::uint8_t* targetEnd, bool lenient) {
    for (; source != sourceEnd; ++source) {
        if (*source > kLastCodePoint) return ConversionResult::SourceIllegal;
        if (!lenient && IsSurrogate(*source)) return ConversionResult::SourceIllegal;
        if (!PutUtf8(*source, target, targetEnd)) return ConversionResult::TargetExhausted;
    }
    return ConversionResult::ConversionOk;
}

ConversionResult ConvertUtf8ToUtf32(const std::uint8_t*& source, const std::uint8_t* sourceEnd,
                                    char32_t*& target, char32_t* targetEnd) {
    while (source != sourceEnd) {
        const Decoded decoded = DecodeSequence(source, sourceEnd);
        if (decoded.result != ConversionResult::ConversionOk) return decoded.result;
        if (target == targetEnd) return ConversionResult::TargetExhausted;
        if (IsSurrogate(decoded.code)) return ConversionResult::SourceIllegal;
        *target++ = decoded.code;
        source += decoded.length;
    }
    return ConversionResult::ConversionOk;
}

RangePositions<std::uint8_t, char16_t> Utf8RangeToUtf16(const std::uint8_t* source,
                                                        const std::uint8_t* sourceEnd, char16_t* target,
                                                        char16_t* targetEnd, bool lenient) {
    if (source == sourceEnd) return {source, target};
    if (target == targetEnd) ThrowEmptyTarget();
    if (ConvertUtf8ToUtf16(source, sourceEnd, target, targetEnd, lenient) ==
        ConversionResult::SourceIllegal) {
        ThrowBadUtf8();
    }
    return {source, target};
}

RangePositions<char16_t, std::uint8_t> Utf16RangeToUtf8(const char16_t* source, const char16_t* sourceEnd,
                                                        std::uint8_t* target, std::uint8_t* targetEnd,
                                                        bool lenient) {
    if (source == sourceEnd) return {source, target};
    if (target == targetEnd) ThrowEmptyTarget();
    if (ConvertUtf16ToUtf8(source, sourceEnd, target, targetEnd, lenient) ==
        ConversionResult::SourceIllegal) {
        ThrowBadUtf16();
    }
    return {source, target};
}

} // namespace brixen::lyr::gen
