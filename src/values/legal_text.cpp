#include "values/legal_text.h"

#include "values/ascii_block.h"
#include "values/dense_block.h"

#include <algorithm>
#include <array>
#include <bit>

namespace brixen::lyr::gen::legal_text {

namespace {

constexpr std::uint32_t kLastCodePoint = 0x10FFFF;
constexpr std::uint64_t kNotAscii = 0x8080808080808080;

// One legal sequence of several bytes; false when it is anything else. The marks are tested at once, and an
// overlong form shows in its code point. At least four bytes before `end` can be read.
inline bool QuickSequence(const Byte*& source, const Byte* end, char16_t*& target) {
    // The last bytes come with zeros behind them, which belong to no sequence.
    const Byte* const from = std::min(source, end - 4);
    const std::uint32_t four = ReadWord<std::uint32_t>(from) >> (8 * (source - from));
    if ((four & 0xC0C0F0) == 0x8080E0) {
        const char32_t code = ((four & 0x0F) << 12) | ((four >> 2) & 0xFC0) | ((four >> 16) & 0x3F);
        if (code < 0x800 || IsSurrogate(code)) return false;
        *target++ = static_cast<char16_t>(code);
        source += 3;
        return true;
    }
    if ((four & 0xC0E0) == 0x80C0) {
        const char32_t code = ((four & 0x1F) << 6) | ((four >> 8) & 0x3F);
        if (code < 0x80) return false;
        *target++ = static_cast<char16_t>(code);
        source += 2;
        return true;
    }
    const char32_t code =
        ((four & 0x07) << 18) | ((four << 4) & 0x3F000) | ((four >> 10) & 0xFC0) | ((four >> 24) & 0x3F);
    if ((four & 0xC0C0C0F8) != 0x808080F0 || code < 0x10000 || code > kLastCodePoint) return false;
    target[0] = static_cast<char16_t>(0xD7C0 + (code >> 10));
    target[1] = static_cast<char16_t>(0xDC00 + (code & 0x3FF));
    target += 2;
    source += 4;
    return true;
}

// One character beyond ASCII; false for an unpaired surrogate. Four bytes are written, however many count.
inline bool QuickCharacter(const char16_t*& source, const char16_t* end, Byte*& target) {
    const std::uint32_t unit = *source;
    if (unit < 0x800) {
        WriteWord(target, 0x80C0 | (unit >> 6) | (unit & 0x3F) << 8);
        target += 2;
        ++source;
        return true;
    }
    if (!IsSurrogate(unit)) {
        WriteWord(target, 0x8080E0 | (unit >> 12) | (unit & 0xFC0) << 2 | (unit & 0x3F) << 16);
        target += 3;
        ++source;
        return true;
    }
    if (!IsHighSurrogate(unit) || end - source < 2 || !IsLowSurrogate(source[1])) return false;
    const std::uint32_t code = 0x10000 + ((unit - 0xD800) << 10) + (source[1] - 0xDC00U);
    WriteWord(target, 0x808080F0 | (code >> 18) | ((code >> 4) & 0x3F00) | (code & 0xFC0) << 10 |
                          (code & 0x3F) << 24);
    target += 4;
    source += 2;
    return true;
}

// The `count` bytes that begin at `source` and are not all ASCII. They stand at `target` widened, so that
// runs of ASCII are in place; what is between those goes one by one. A sequence at the end may reach beyond
// them.
inline bool MixedToUtf16(std::uint64_t bytes, std::ptrdiff_t count, const Byte*& source, const Byte* end,
                         char16_t*& target) {
    const Byte* const start = source;
    const Byte* const stop = source + count;
    std::uint64_t rest = bytes;
    do {
        const int ascii = std::countr_zero(rest & kNotAscii) / 8;
        source += ascii;
        target += ascii;
        do {
            if (!QuickSequence(source, end, target)) return false;
        } while (source < stop && *source >= 0x80);
        if (source >= stop) return true;
        rest = bytes >> (8 * (source - start));
        blocks::WidenBlock(rest, target);
    } while ((rest & kNotAscii) != 0);
    target += stop - source;
    source = stop;
    return true;
}

inline bool MixedToUtf8(const NarrowedBlock& block, std::ptrdiff_t count, const char16_t*& source,
                        const char16_t* end, Byte*& target) {
    const char16_t* const start = source;
    const char16_t* const stop = source + count;
    NarrowedBlock rest = block;
    do {
        const int ascii = std::countr_zero(rest.special);
        source += ascii;
        target += ascii;
        do {
            if (!QuickCharacter(source, end, target)) return false;
        } while (source < stop && *source >= 0x80);
        if (source >= stop) return true;
        rest = block.From(source - start);
        WriteWord(target, rest.bytes);
    } while (rest.special != 0);
    target += stop - source;
    source = stop;
    return true;
}

// A text that stands at the end of at least a whole block of memory.
inline RangePositions<Byte, char16_t> Quick(const Byte* source, const Byte* end, char16_t* target,
                                            const char16_t* targetEnd) {
    bool isLegal = true;
    while (isLegal && source != end && targetEnd - target >= kQuickUnits) {
        const std::ptrdiff_t left = end - source;
        std::uint64_t bytes = 0;
        std::ptrdiff_t count = kAsciiBlock;
        if (left >= kAsciiBlock) {
            bytes = ReadWord<std::uint64_t>(source);
        } else {
            count = left;
            bytes = ReadWord<std::uint64_t>(end - kAsciiBlock) >> (8 * (kAsciiBlock - left));
        }
        if ((bytes & 0xF0) == 0xE0 && left >= kThreeByteLength && DecodeThreeByteBlock(source, target)) {
            source += kThreeByteLength;
            target += kThreeByteUnits;
            continue;
        }
        if ((bytes & 0xF0) == 0xF0 && left >= kPairsLength && DecodePairs(source, target)) {
            source += kPairsLength;
            target += kDenseUnits;
            continue;
        }
        blocks::WidenBlock(bytes, target);
        if ((bytes & kNotAscii) == 0) {
            source += count;
            target += count;
        } else {
            isLegal = MixedToUtf16(bytes, count, source, end, target);
        }
    }
    return {source, target};
}

inline RangePositions<char16_t, Byte> Quick(const char16_t* source, const char16_t* end, Byte* target,
                                            const Byte* targetEnd) {
    bool isLegal = true;
    while (isLegal && source != end && targetEnd - target >= kQuickBytes) {
        const std::ptrdiff_t left = end - source;
        NarrowedBlock block{};
        std::ptrdiff_t count = kAsciiBlock;
        if (left >= kAsciiBlock) {
            block = blocks::NarrowBlock(source);
        } else {
            count = left;
            block = blocks::NarrowBlock(end - kAsciiBlock).From(kAsciiBlock - left);
        }
        WriteWord(target, block.bytes);
        if (block.special == 0) {
            source += count;
            target += count;
        } else if (block.special == 0xFF && EncodeThreeByteBlock(source, target)) {
            source += kDenseUnits;
            target += kDenseUnits * 3;
        } else if (block.special == 0xFF && EncodePairs(source, target)) {
            source += kDenseUnits;
            target += kPairsLength;
        } else {
            isLegal = MixedToUtf8(block, count, source, end, target);
        }
    }
    return {source, target};
}

// A text of any length: a short one goes behind zeros into a block of its own.
template <class Source, class Target>
inline RangePositions<Source, Target> QuickAnyLength(const Source* source, const Source* end, Target* target,
                                                     const Target* targetEnd) {
    std::array<Source, kAsciiBlock> block{};
    const Source* text = source;
    const Source* textEnd = end;
    if (end - source < kAsciiBlock) {
        textEnd = block.data() + block.size();
        text = std::copy_backward(source, end, block.data() + block.size());
    }
    const auto came = Quick(text, textEnd, target, targetEnd);
    return {source + (came.source - text), came.target};
}

} // namespace

RangePositions<Byte, char16_t> QuickUtf8ToUtf16(const Byte* source, const Byte* end, char16_t* target,
                                                const char16_t* targetEnd) {
    return QuickAnyLength(source, end, target, targetEnd);
}

RangePositions<char16_t, Byte> QuickUtf16ToUtf8(const char16_t* source, const char16_t* end, Byte* target,
                                                const Byte* targetEnd) {
    return QuickAnyLength(source, end, target, targetEnd);
}

std::size_t Utf16Length(std::string_view utf8) {
    const Byte* source = reinterpret_cast<const Byte*>(utf8.data());
    const Byte* const end = source + utf8.size();
    std::size_t units = 0;
    for (; end - source >= static_cast<std::ptrdiff_t>(kCountedBytes); source += kCountedBytes) {
        units += blocks::Utf16UnitsOfBlock(source);
    }
    std::array<Byte, kCountedBytes> rest;
    rest.fill(0x80); // starts nothing
    std::copy(source, end, rest.begin());
    return units + blocks::Utf16UnitsOfBlock(rest.data());
}

std::size_t Utf8Length(std::u16string_view utf16) {
    std::size_t bytes = 0;
    for (; utf16.size() >= kAsciiBlock; utf16.remove_prefix(kAsciiBlock)) {
        bytes += blocks::Utf8BytesOfUnits(utf16.data());
    }
    std::array<char16_t, kAsciiBlock> rest{};
    std::copy(utf16.begin(), utf16.end(), rest.begin());
    return bytes + blocks::Utf8BytesOfUnits(rest.data()) - (kAsciiBlock - utf16.size());
}

} // namespace brixen::lyr::gen::legal_text
