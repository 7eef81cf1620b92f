#include "values/unicode/well_formed_text.h"

#include "values/unicode/ascii_block.h"
#include "values/unicode/code_point.h"
#include "values/unicode/dense_block.h"

#include <algorithm>
#include <array>
#include <bit>

namespace brixen::lyr::gen {
namespace {

using Byte = std::uint8_t;

constexpr std::uint64_t kNotAscii = 0x8080808080808080;

// How far a conversion came. The loops keep both in locals: a byte that is written might else be a part of a
// pointer that is reached through a reference.
template <class Source, class Target>
struct Progress {
    const Source* source;
    Target* target;
};

// Converts one legal sequence of several bytes; false for anything else. The marks are tested at once, and an
// overlong form shows in its code point. At least four bytes before `end` can be read.
inline bool ConvertSequence(const Byte*& source, const Byte* end, char16_t*& target) {
    // Zeros follow the last bytes; they belong to no sequence.
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
    target[0] = HighSurrogateOf(code);
    target[1] = LowSurrogateOf(code);
    target += 2;
    source += 4;
    return true;
}

// The bytes of one character beyond ASCII in one word, the first lowest, so that a single write stores them.
constexpr std::uint32_t TwoBytes(std::uint32_t unit) { return 0x80C0 | ((unit << 8 | unit >> 6) & 0x3F1F); }
constexpr std::uint32_t ThreeBytes(std::uint32_t unit) {
    return 0x8080E0 | (unit >> 12) | (unit & 0xFC0) << 2 | (unit & 0x3F) << 16;
}
constexpr std::uint32_t FourBytes(std::uint32_t high, std::uint32_t low) {
    const std::uint32_t code = CodeOfPair(high, low);
    return 0x808080F0 | (code >> 18) | ((code >> 4) & 0x3F00) | (code & 0xFC0) << 10 | (code & 0x3F) << 24;
}

inline bool IsPair(const char16_t* source, const char16_t* end) {
    return IsHighSurrogate(*source) && end - source >= 2 && IsLowSurrogate(source[1]);
}

// Converts a block of bytes of which `count` belong to the text and not all are ASCII. The block is already
// widened at `target`, so that runs of ASCII are in place. The sequences between them go one by one, and the
// rest of the block is widened again after each. A sequence at the end may reach beyond the block.
inline bool MixedToUtf16(std::uint64_t bytes, std::ptrdiff_t count, const Byte*& source, const Byte* end,
                         char16_t*& target) {
    const Byte* const stop = source + count;
    while ((bytes & kNotAscii) != 0) {
        const int ascii = std::countr_zero(bytes & kNotAscii) / 8;
        source += ascii;
        target += ascii;
        bytes >>= 8 * ascii;
        if ((bytes & 0xC0E0) == 0x80C0 && (bytes & 0x1E) != 0) {
            *target++ = static_cast<char16_t>(((bytes & 0x1F) << 6) | ((bytes >> 8) & 0x3F));
            source += 2;
            bytes >>= 16;
        } else {
            const Byte* const sequence = source;
            if (!ConvertSequence(source, end, target)) return false;
            if (source >= stop) return true;
            bytes >>= 8 * (source - sequence);
        }
        blocks::WidenBlock(bytes, target);
    }
    target += stop - source;
    source = stop;
    return true;
}

// The same for a block of units. An unpaired surrogate stops it.
inline bool MixedToUtf8(const NarrowedBlock& block, std::ptrdiff_t count, const char16_t*& source,
                        const char16_t* end, Byte*& target) {
    std::uint32_t special = block.special;
    do {
        std::ptrdiff_t at = std::countr_zero(special);
        const std::uint32_t unit = source[at];
        std::uint64_t rest = block.bytes >> (8 * at) >> 8;
        special &= special - 1;
        if (unit < 0x800) {
            WriteWord(target + at, TwoBytes(unit));
            target += 1;
        } else if (!IsSurrogate(unit)) {
            WriteWord(target + at, ThreeBytes(unit));
            target += 2;
        } else if (IsPair(source + at, end)) {
            WriteWord(target + at, FourBytes(unit, source[at + 1]));
            target += 2;
            special &= special - 1;
            rest >>= 8;
            ++at;
            count = std::max(count, at + 1);
        } else {
            source += at;
            target += at;
            return false;
        }
        WriteWord(target + at + 1, rest);
    } while (special != 0);
    source += count;
    target += count;
    return true;
}

// Converts a text of at least a block. Its last block begins among units that are converted already, so that
// it is whole.
inline Progress<Byte, char16_t> ConvertBlocks(const Byte* source, const Byte* end, char16_t* target,
                                              const char16_t* targetEnd) {
    if (targetEnd - target < kLeastUtf16Room || source == end) return {source, target};
    const char16_t* const start = target;
    const char16_t* const lastTarget = targetEnd - kLeastUtf16Room;
    bool isLegal = true;
    do {
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
            target += kDenseUnits;
            continue;
        }
        if ((bytes & 0xF0) == 0xF0) {
            const std::ptrdiff_t known = left >= kPairsLength ? 0 : kPairsLength - left;
            // No byte makes more than one unit: with so many units, there are enough bytes before.
            if (target - start >= known && DecodePairs(source - known, target - known / 2)) {
                source += kPairsLength - known;
                target += kDenseUnits - known / 2;
                continue;
            }
        }
        blocks::WidenBlock(bytes, target);
        if ((bytes & kNotAscii) == 0) {
            source += count;
            target += count;
        } else {
            isLegal = MixedToUtf16(bytes, count, source, end, target);
        }
    } while (isLegal && source != end && target <= lastTarget);
    return {source, target};
}

// Converts a block of characters that all take three bytes or are all pairs; false for any other. The first
// `known` units are converted already, right before `target`, and are written again as they are.
inline bool DenseToUtf8(const char16_t* block, std::ptrdiff_t known, Byte*& target) {
    if (EncodeThreeByteBlock(block, target - 3 * known)) {
        target += 3 * (kDenseUnits - known);
        return true;
    }
    if (EncodePairs(block, target - 2 * known)) {
        target += 2 * (kDenseUnits - known);
        return true;
    }
    return false;
}

inline Progress<char16_t, Byte> ConvertBlocks(const char16_t* source, const char16_t* end, Byte* target,
                                              const Byte* targetEnd) {
    if (targetEnd - target < kLeastUtf8Room || source == end) return {source, target};
    const Byte* const start = target;
    const Byte* const lastTarget = targetEnd - kLeastUtf8Room;
    bool isLegal = true;
    do {
        NarrowedBlock block{};
        std::ptrdiff_t count = kAsciiBlock;
        if (end - source >= kAsciiBlock) {
            if (*source >= 0x800 && DenseToUtf8(source, 0, target)) {
                source += kDenseUnits;
                continue;
            }
            block = blocks::NarrowBlock(source);
        } else {
            count = end - source;
            const std::ptrdiff_t known = kAsciiBlock - count;
            if (*source >= 0x800 && target - start >= 3 * known &&
                DenseToUtf8(end - kAsciiBlock, known, target)) {
                source = end;
                break;
            }
            block = blocks::NarrowBlock(end - kAsciiBlock).From(known);
        }
        WriteWord(target, block.bytes);
        if (block.special == 0) {
            target += count;
            source += count;
        } else {
            isLegal = MixedToUtf8(block, count, source, end, target);
        }
    } while (isLegal && source != end && target <= lastTarget);
    return {source, target};
}

// Converts a text that is shorter than a block, after zeros in a block of its own. Out of line, so that no
// other text pays for the block.
template <class Source, class Target>
[[gnu::noinline]] Progress<Source, Target> ConvertShort(const Source* source, const Source* end,
                                                        Target* target, const Target* targetEnd) {
    std::array<Source, kAsciiBlock> block{};
    const Source* const text = std::copy_backward(source, end, block.data() + block.size());
    const auto came = ConvertBlocks(text, block.data() + block.size(), target, targetEnd);
    return {source + (came.source - text), came.target};
}

template <class Source, class Target>
void ConvertWellFormed(const Source*& source, const Source* end, Target*& target, const Target* targetEnd) {
    const auto came = end - source < kAsciiBlock ? ConvertShort(source, end, target, targetEnd)
                                                 : ConvertBlocks(source, end, target, targetEnd);
    source = came.source;
    target = came.target;
}

} // namespace

void ConvertWellFormedUtf8(const Byte*& source, const Byte* sourceEnd, char16_t*& target,
                           const char16_t* targetEnd) {
    ConvertWellFormed(source, sourceEnd, target, targetEnd);
}

void ConvertWellFormedUtf16(const char16_t*& source, const char16_t* sourceEnd, Byte*& target,
                            const Byte* targetEnd) {
    ConvertWellFormed(source, sourceEnd, target, targetEnd);
}

std::size_t CountUtf16Units(std::string_view utf8) {
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

std::size_t CountUtf8Bytes(std::u16string_view utf16) {
    std::size_t bytes = 0;
    for (; utf16.size() >= kAsciiBlock; utf16.remove_prefix(kAsciiBlock)) {
        bytes += blocks::Utf8BytesOfUnits(utf16.data());
    }
    std::array<char16_t, kAsciiBlock> rest{};
    std::copy(utf16.begin(), utf16.end(), rest.begin());
    return bytes + blocks::Utf8BytesOfUnits(rest.data()) - (kAsciiBlock - utf16.size());
}

} // namespace brixen::lyr::gen
