// Blocks of eight or sixteen characters at a time, for text that is mostly ASCII. Private to the text
// conversion.
#pragma once

#include "compiler.h"

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>

namespace brixen::lyr::gen {

inline constexpr std::ptrdiff_t kAsciiBlock = 8; // characters narrowed or widened at a time
inline constexpr std::size_t kCountedBytes = 16; // bytes counted at a time

// Eight units cut to their low bytes, the first lowest, and a bit for each that is not ASCII. The byte of
// such a unit has no meaning.
struct NarrowedBlock {
    std::uint64_t bytes;
    std::uint32_t special;

    // Without the first `count` units, fewer than eight.
    NarrowedBlock From(std::ptrdiff_t count) const { return {bytes >> (8 * count), special >> count}; }
};

// Bytes of memory as a number, the first lowest.
template <class Word>
Word ReadWord(const std::uint8_t* source) {
    Word word = 0;
    if constexpr (std::endian::native == std::endian::little) {
        std::memcpy(&word, source, sizeof word);
    } else {
        for (std::size_t i = sizeof word; i-- > 0;) word = static_cast<Word>(word << 8 | source[i]);
    }
    return word;
}

template <class Word>
void WriteWord(std::uint8_t* target, Word word) {
    if constexpr (std::endian::native == std::endian::little) {
        std::memcpy(target, &word, sizeof word);
    } else {
        for (std::size_t i = 0; i < sizeof word; ++i) target[i] = static_cast<std::uint8_t>(word >> (8 * i));
    }
}

// The reference for the functions below, and all there is on processors without vectors.
namespace scalar_blocks {

// Eight bytes, the first lowest, as eight units.
inline void WidenBlock(std::uint64_t bytes, char16_t* target) {
    for (std::ptrdiff_t i = 0; i < kAsciiBlock; ++i) {
        target[i] = static_cast<char16_t>(bytes >> (8 * i) & 0xFF);
    }
}

inline NarrowedBlock NarrowBlock(const char16_t* source) {
    NarrowedBlock block{};
    for (std::ptrdiff_t i = kAsciiBlock; i-- > 0;) {
        block.bytes = block.bytes << 8 | (source[i] & 0xFFU);
        block.special = block.special << 1 | static_cast<std::uint32_t>(source[i] >= 0x80);
    }
    return block;
}

// The number of units that begin in sixteen bytes of legal UTF-8. A pair of surrogates counts as two.
inline std::size_t Utf16UnitsOfBlock(const std::uint8_t* source) {
    std::size_t units = 0;
    for (std::size_t i = 0; i < kCountedBytes; ++i) {
        units += static_cast<std::size_t>((source[i] & 0xC0) != 0x80) +
                 static_cast<std::size_t>(source[i] >= 0xF0);
    }
    return units;
}

// The number of bytes that eight units take in UTF-8. Each half of a pair counts as two.
inline std::size_t Utf8BytesOfUnits(const char16_t* source) {
    std::size_t bytes = 24;
    for (std::ptrdiff_t i = 0; i < kAsciiBlock; ++i) {
        const bool three = source[i] >= 0x800 && (source[i] & 0xF800) != 0xD800;
        bytes -= static_cast<std::size_t>(source[i] < 0x80) + static_cast<std::size_t>(!three);
    }
    return bytes;
}

} // namespace scalar_blocks

#ifdef PVN_HAS_SSE2

namespace vector_blocks {

inline void WidenBlock(std::uint64_t bytes, char16_t* target) {
    const __m128i narrow = _mm_cvtsi64_si128(static_cast<long long>(bytes));
    _mm_storeu_si128(reinterpret_cast<__m128i*>(target), _mm_unpacklo_epi8(narrow, _mm_setzero_si128()));
}

inline NarrowedBlock NarrowBlock(const char16_t* source) {
    const __m128i units = _mm_loadu_si128(reinterpret_cast<const __m128i*>(source));
    const __m128i bytes = _mm_packus_epi16(units, units);
    // A unit of 0x80 or more becomes negative, and stays so when the lanes are packed.
    const __m128i above = _mm_adds_epu16(units, _mm_set1_epi16(0x7F80));
    const int special = _mm_movemask_epi8(_mm_packs_epi16(above, _mm_setzero_si128()));
    return {static_cast<std::uint64_t>(_mm_cvtsi128_si64(bytes)), static_cast<std::uint32_t>(special)};
}

// The sum of the two halves, which are small numbers.
inline std::size_t SumOf(__m128i halves) {
    const int low = _mm_cvtsi128_si32(halves);
    const int high = _mm_extract_epi16(halves, 4);
    return static_cast<std::size_t>(low) + static_cast<std::size_t>(high);
}

inline std::size_t Utf16UnitsOfBlock(const std::uint8_t* source) {
    const __m128i bytes = _mm_loadu_si128(reinterpret_cast<const __m128i*>(source));
    const __m128i starts = _mm_cmpgt_epi8(bytes, _mm_set1_epi8(static_cast<char>(0xBF)));
    const __m128i pairs = _mm_cmpeq_epi8(_mm_max_epu8(bytes, _mm_set1_epi8(static_cast<char>(0xF0))), bytes);
    const __m128i minusUnits = _mm_add_epi8(starts, pairs);
    const __m128i sums = _mm_sad_epu8(_mm_sub_epi8(_mm_setzero_si128(), minusUnits), _mm_setzero_si128());
    return SumOf(sums);
}

inline std::size_t Utf8BytesOfUnits(const char16_t* source) {
    const __m128i units = _mm_loadu_si128(reinterpret_cast<const __m128i*>(source));
    const __m128i zero = _mm_setzero_si128();
    const __m128i one =
        _mm_cmpeq_epi16(_mm_and_si128(units, _mm_set1_epi16(static_cast<short>(0xFF80))), zero);
    const __m128i high = _mm_and_si128(units, _mm_set1_epi16(static_cast<short>(0xF800)));
    const __m128i notThree = _mm_or_si128(_mm_cmpeq_epi16(high, zero),
                                          _mm_cmpeq_epi16(high, _mm_set1_epi16(static_cast<short>(0xD800))));
    const __m128i sparedBytes = _mm_sub_epi8(zero, _mm_packs_epi16(one, notThree));
    const __m128i sums = _mm_sad_epu8(sparedBytes, zero);
    return 24 - SumOf(sums);
}

} // namespace vector_blocks

namespace blocks = vector_blocks;

#else

namespace blocks = scalar_blocks;

#endif

} // namespace brixen::lyr::gen
