#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>

#if defined(__SSE2__) || defined(_M_X64)
#include <emmintrin.h>
#define PAVANE_HAS_SSE2 1
#endif

// Blocks of sixteen at a time, for text that is mostly ASCII. Private to the text conversion.
namespace brixen::lyr::gen {

inline constexpr std::size_t kAsciiBlock = 16;

// What the functions mean, for processors without vectors.
namespace scalar_blocks {

// Widens sixteen bytes and returns how many of them, from the front, are ASCII; what is behind those may be
// written too, and means nothing then.
inline std::size_t WidenAsciiBlock(const std::uint8_t* source, char16_t* target) {
    std::size_t count = 0;
    for (; count < kAsciiBlock && source[count] < 0x80; ++count) target[count] = source[count];
    return count;
}

// The same with half a block.
inline std::size_t WidenAsciiHalfBlock(const std::uint8_t* source, char16_t* target) {
    std::size_t count = 0;
    for (; count < kAsciiBlock / 2 && source[count] < 0x80; ++count) target[count] = source[count];
    return count;
}

// The way back.
inline std::size_t NarrowAsciiBlock(const char16_t* source, std::uint8_t* target) {
    std::size_t count = 0;
    for (; count < kAsciiBlock && source[count] < 0x80; ++count)
        target[count] = static_cast<std::uint8_t>(source[count]);
    return count;
}

// How many units the sixteen bytes of legal UTF-8 start, a pair of surrogates counting as two.
inline std::size_t Utf16UnitsOfBlock(const std::uint8_t* source) {
    std::size_t units = 0;
    for (std::size_t i = 0; i < kAsciiBlock; ++i) {
        units += static_cast<std::size_t>((source[i] & 0xC0) != 0x80) +
                 static_cast<std::size_t>(source[i] >= 0xF0);
    }
    return units;
}

// How many bytes of UTF-8 the eight units give, each half of a pair counting as two.
inline std::size_t Utf8BytesOfUnits(const char16_t* source) {
    std::size_t bytes = 24;
    for (std::size_t i = 0; i < kAsciiBlock / 2; ++i) {
        const bool three = source[i] >= 0x800 && (source[i] & 0xF800) != 0xD800;
        bytes -= static_cast<std::size_t>(source[i] < 0x80) + static_cast<std::size_t>(!three);
    }
    return bytes;
}

} // namespace scalar_blocks

#ifdef PAVANE_HAS_SSE2

namespace vector_blocks {

inline std::size_t WidenAsciiBlock(const std::uint8_t* source, char16_t* target) {
    const __m128i bytes = _mm_loadu_si128(reinterpret_cast<const __m128i*>(source));
    const __m128i zero = _mm_setzero_si128();
    _mm_storeu_si128(reinterpret_cast<__m128i*>(target), _mm_unpacklo_epi8(bytes, zero));
    _mm_storeu_si128(reinterpret_cast<__m128i*>(target + 8), _mm_unpackhi_epi8(bytes, zero));
    const auto marks = static_cast<std::uint32_t>(_mm_movemask_epi8(bytes)) | 0x10000U;
    return static_cast<std::size_t>(std::countr_zero(marks));
}

inline std::size_t WidenAsciiHalfBlock(const std::uint8_t* source, char16_t* target) {
    const __m128i bytes = _mm_loadl_epi64(reinterpret_cast<const __m128i*>(source));
    _mm_storeu_si128(reinterpret_cast<__m128i*>(target), _mm_unpacklo_epi8(bytes, _mm_setzero_si128()));
    const auto marks = static_cast<std::uint32_t>(_mm_movemask_epi8(bytes)) | 0x100U;
    return static_cast<std::size_t>(std::countr_zero(marks));
}

inline std::size_t NarrowAsciiBlock(const char16_t* source, std::uint8_t* target) {
    const __m128i low = _mm_loadu_si128(reinterpret_cast<const __m128i*>(source));
    const __m128i high = _mm_loadu_si128(reinterpret_cast<const __m128i*>(source + 8));
    _mm_storeu_si128(reinterpret_cast<__m128i*>(target), _mm_packus_epi16(low, high));
    const __m128i above = _mm_set1_epi16(static_cast<short>(0xFF80));
    const __m128i zero = _mm_setzero_si128();
    const __m128i lowAscii = _mm_cmpeq_epi16(_mm_and_si128(low, above), zero);
    const __m128i highAscii = _mm_cmpeq_epi16(_mm_and_si128(high, above), zero);
    const auto ascii = static_cast<std::uint32_t>(_mm_movemask_epi8(_mm_packs_epi16(lowAscii, highAscii)));
    return static_cast<std::size_t>(std::countr_one(ascii));
}

inline std::size_t Utf16UnitsOfBlock(const std::uint8_t* source) {
    const __m128i bytes = _mm_loadu_si128(reinterpret_cast<const __m128i*>(source));
    const __m128i starts = _mm_cmpgt_epi8(bytes, _mm_set1_epi8(static_cast<char>(0xBF)));
    const __m128i pairs = _mm_cmpeq_epi8(_mm_max_epu8(bytes, _mm_set1_epi8(static_cast<char>(0xF0))), bytes);
    const __m128i minusUnits = _mm_add_epi8(starts, pairs);
    const __m128i sums = _mm_sad_epu8(_mm_sub_epi8(_mm_setzero_si128(), minusUnits), _mm_setzero_si128());
    return static_cast<std::size_t>(_mm_cvtsi128_si32(sums) + _mm_extract_epi16(sums, 4));
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
    return 24 - static_cast<std::size_t>(_mm_cvtsi128_si32(sums) + _mm_extract_epi16(sums, 4));
}

} // namespace vector_blocks

namespace blocks = vector_blocks;

#else

namespace blocks = scalar_blocks;

#endif

} // namespace brixen::lyr::gen
