#include "values/unicode/text_conversion.h"

#include "values/unicode/code_point.h"
#include "values/unicode/well_formed_text.h"

#include <algorithm>
#include <array>

namespace brixen::lyr::gen {
namespace {

using Byte = std::uint8_t;

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
    if (!IsLegalUtf8(source, static_cast<std::size_t>(length))) {
        return {ConversionResult::SourceIllegal, 0, 0};
    }
    char32_t code = 0;
    for (std::ptrdiff_t i = 0; i < length; ++i) code = (code << 6) + source[i];
    return {ConversionResult::ConversionOk, code - kSequenceOffset[static_cast<std::size_t>(length - 1)],
            length};
}

// Writes one code point as one or two units; false when there is no room for it.
bool PutUtf16(char32_t code, char16_t*& target, const char16_t* end) {
    if (code <= kLastBasicCode) {
        if (target == end) return false;
        *target++ = static_cast<char16_t>(code);
        return true;
    }
    if (end - target < 2) return false;
    *target++ = HighSurrogateOf(code);
    *target++ = LowSurrogateOf(code);
    return true;
}

bool PutUtf8(char32_t code, Byte*& target, const Byte* end) {
    const std::size_t length = Utf8Length(code);
    if (static_cast<std::size_t>(end - target) < length) return false;
    WriteUtf8(code, length, target);
    target += length;
    return true;
}

// Reads one code point of UTF-16. A high surrogate that is the very last unit is read as a code point.
Decoded DecodePair(const char16_t* source, const char16_t* end, bool lenient) {
    const char32_t unit = *source;
    if (!IsSurrogate(unit)) return {ConversionResult::ConversionOk, unit, 1};
    if (IsHighSurrogate(unit) && end - source > 1) {
        const char32_t next = source[1];
        if (IsLowSurrogate(next)) {
            return {ConversionResult::ConversionOk, CodeOfPair(unit, next), 2};
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
        ConvertWellFormedUtf8(source, sourceEnd, target, targetEnd);
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
        ConvertWellFormedUtf16(source, sourceEnd, target, targetEnd);
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
        if (code > kLastCodePoint) code = kReplacementCharacter;
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

// Whole texts. A short text that is well-formed all through takes one step. Any other goes in pieces, each by
// the fast path as far as that leads, and one careful step where it stops.
namespace {

constexpr std::size_t kPiece = 256; // bytes or units that are converted at a time
// The room of a careful step. It holds at least one character, and is too little for the fast paths.
constexpr std::ptrdiff_t kCarefulRoom = 12;
static_assert(kCarefulRoom < kLeastUtf16Room && kCarefulRoom < kLeastUtf8Room);

const Byte* BytesOf(std::string_view narrow) { return reinterpret_cast<const Byte*>(narrow.data()); }
const char* CharsOf(const Byte* bytes) { return reinterpret_cast<const char*>(bytes); }

std::string ToUtf8InPieces(std::u16string_view wide, bool lenient) {
    const char16_t* source = wide.data();
    const char16_t* const end = source + wide.size();
    std::array<Byte, kPiece> piece;
    std::string result;
    result.reserve(CountUtf8Bytes(wide));
    while (source != end) {
        const char16_t* const before = source;
        Byte* target = piece.data();
        ConvertWellFormedUtf16(source, end, target, piece.data() + piece.size());
        if (source == before) {
            const auto came =
                Utf16RangeToUtf8(source, end, piece.data(), piece.data() + kCarefulRoom, lenient);
            source = came.source;
            target = came.target;
        }
        result.append(CharsOf(piece.data()), CharsOf(target));
    }
    return result;
}

std::u16string ToUtf16InPieces(std::string_view narrow, bool lenient) {
    const Byte* source = BytesOf(narrow);
    const Byte* const end = source + narrow.size();
    std::array<char16_t, kPiece> piece;
    std::u16string result;
    result.reserve(CountUtf16Units(narrow));
    while (source != end) {
        const Byte* const before = source;
        char16_t* target = piece.data();
        ConvertWellFormedUtf8(source, end, target, piece.data() + piece.size());
        if (source == before) {
            const auto came =
                Utf8RangeToUtf16(source, end, piece.data(), piece.data() + kCarefulRoom, lenient);
            // The range converter leaves a sequence that the text cuts short to its caller.
            if (came.source == source) ThrowBadUtf8();
            source = came.source;
            target = came.target;
        }
        result.append(piece.data(), target);
    }
    return result;
}

} // namespace

std::string ToUtf8(std::u16string_view wide, bool lenient) {
    const char16_t* source = wide.data();
    const char16_t* const end = source + wide.size();
    std::array<Byte, kPiece> piece;
    Byte* target = piece.data();
    ConvertWellFormedUtf16(source, end, target, piece.data() + piece.size());
    if (source != end) return ToUtf8InPieces(wide, lenient);
    return {CharsOf(piece.data()), CharsOf(target)};
}

std::u16string ToUtf16(std::string_view narrow, bool lenient) {
    const Byte* source = BytesOf(narrow);
    const Byte* const end = source + narrow.size();
    std::array<char16_t, kPiece> piece;
    char16_t* target = piece.data();
    ConvertWellFormedUtf8(source, end, target, piece.data() + piece.size());
    if (source != end) return ToUtf16InPieces(narrow, lenient);
    return {piece.data(), target};
}

} // namespace brixen::lyr::gen
