// Blocks of characters that all take three bytes of UTF-8, as those of Chinese, Japanese and Korean do, or
// all four. Private to the text conversion.
#pragma once

#include "values/unicode/ascii_block.h"

// Each function converts a whole block. It returns false and leaves the block to the caller for any other
// characters, and always on processors without vectors.
namespace brixen::lyr::gen {

inline constexpr std::ptrdiff_t kDenseUnits = 8;                    // converted at a time
inline constexpr std::ptrdiff_t kThreeByteLength = kDenseUnits * 3; // bytes
inline constexpr std::ptrdiff_t kThreeByteRoom =
    kThreeByteLength + 2; // with the bytes that are written after it
inline constexpr std::ptrdiff_t kPairsLength = kDenseUnits * sizeof(char16_t); // bytes, of four pairs

#ifdef PVN_HAS_SSE2

namespace vector_blocks {

inline __m128i Masked(__m128i lanes, std::uint32_t mask) {
    return _mm_and_si128(lanes, _mm_set1_epi32(static_cast<int>(mask)));
}

inline __m128i AreEqual(__m128i lanes, std::uint32_t value) {
    return _mm_cmpeq_epi32(lanes, _mm_set1_epi32(static_cast<int>(value)));
}

inline bool IsEverywhere(__m128i condition) { return _mm_movemask_epi8(condition) == 0xFFFF; }

// Writes four sequences of three bytes, each from a lane of its own: six bytes at `target` and six after
// them.
inline void WriteFourSequences(__m128i lanes, std::uint8_t* target) {
    const __m128i even = _mm_and_si128(lanes, _mm_set_epi32(0, -1, 0, -1));
    const __m128i sixes = _mm_or_si128(even, _mm_slli_epi64(_mm_srli_epi64(lanes, 32), 24));
    _mm_storel_epi64(reinterpret_cast<__m128i*>(target), sixes);
    _mm_storel_epi64(reinterpret_cast<__m128i*>(target + 6), _mm_unpackhi_epi64(sixes, sixes));
}

// The inverse: reads twelve bytes into four lanes.
inline __m128i ReadFourSequences(const std::uint8_t* source) {
    const __m128i front = _mm_loadl_epi64(reinterpret_cast<const __m128i*>(source));
    const __m128i back = _mm_srli_epi64(_mm_loadl_epi64(reinterpret_cast<const __m128i*>(source + 4)), 16);
    const __m128i sixes = _mm_unpacklo_epi64(front, back);
    const __m128i even = _mm_and_si128(sixes, _mm_set_epi32(0, 0xFFFFFF, 0, 0xFFFFFF));
    return _mm_or_si128(even, _mm_slli_epi64(_mm_srli_epi64(sixes, 24), 32));
}

// The code points of the sequences in four lanes.
inline __m128i CodesOfSequences(__m128i lanes) {
    // Each code is in the upper half of its lane first, so that packing with signs keeps all of it.
    const __m128i upper =
        _mm_or_si128(_mm_slli_epi32(lanes, 28),
                     _mm_or_si128(_mm_slli_epi32(Masked(lanes, 0x3F00), 14), Masked(lanes, 0x3F0000)));
    return _mm_srai_epi32(upper, 16);
}

// Whether each unit takes three bytes.
inline bool TakeThreeBytes(__m128i units) {
    const __m128i high = Masked(units, 0xF800F800);
    const __m128i isOther = _mm_or_si128(_mm_cmpeq_epi16(high, _mm_setzero_si128()),
                                         _mm_cmpeq_epi16(high, _mm_set1_epi16(static_cast<short>(0xD800))));
    return _mm_movemask_epi8(isOther) == 0;
}

} // namespace vector_blocks

// kDenseUnits units of the three-byte kind, into kThreeByteRoom bytes.
inline bool EncodeThreeByteBlock(const char16_t* source, std::uint8_t* target) {
    using namespace vector_blocks;
    const __m128i units = _mm_loadu_si128(reinterpret_cast<const __m128i*>(source));
    if (!TakeThreeBytes(units)) return false;
    const __m128i frontBits =
        _mm_or_si128(_mm_srli_epi16(units, 12), Masked(_mm_slli_epi16(units, 2), 0x3F003F00));
    const __m128i front = _mm_or_si128(frontBits, _mm_set1_epi16(static_cast<short>(0x80E0)));
    const __m128i last = _mm_or_si128(Masked(units, 0x003F003F), _mm_set1_epi16(0x80));
    WriteFourSequences(_mm_unpacklo_epi16(front, last), target);
    WriteFourSequences(_mm_unpackhi_epi16(front, last), target + kThreeByteLength / 2);
    return true;
}

// kThreeByteLength bytes into kDenseUnits units.
inline bool DecodeThreeByteBlock(const std::uint8_t* source, char16_t* target) {
    using namespace vector_blocks;
    const __m128i front = ReadFourSequences(source);
    const __m128i back = ReadFourSequences(source + kThreeByteLength / 2);
    const __m128i areMarked = _mm_and_si128(AreEqual(Masked(front, 0xC0C0F0), 0x8080E0),
                                            AreEqual(Masked(back, 0xC0C0F0), 0x8080E0));
    const __m128i units = _mm_packs_epi32(CodesOfSequences(front), CodesOfSequences(back));
    if (!IsEverywhere(areMarked) || !TakeThreeBytes(units)) return false;
    _mm_storeu_si128(reinterpret_cast<__m128i*>(target), units);
    return true;
}

// kDenseUnits units, which are four pairs of surrogates, into kPairsLength bytes.
inline bool EncodePairs(const char16_t* source, std::uint8_t* target) {
    using namespace vector_blocks;
    const __m128i pairs = _mm_loadu_si128(reinterpret_cast<const __m128i*>(source));
    if (!IsEverywhere(AreEqual(Masked(pairs, 0xFC00FC00), 0xDC00D800))) return false;
    const __m128i high =
        _mm_add_epi32(Masked(pairs, 0x3FF), _mm_set1_epi32(0x40)); // the code without its low ten bits
    const __m128i first = _mm_srli_epi32(high, 8);
    const __m128i second = Masked(_mm_slli_epi32(high, 6), 0x3F00);
    const __m128i third =
        _mm_or_si128(Masked(_mm_slli_epi32(high, 20), 0x300000), Masked(_mm_srli_epi32(pairs, 6), 0xF0000));
    const __m128i fourth = Masked(_mm_slli_epi32(pairs, 8), 0x3F000000);
    const __m128i payload = _mm_or_si128(_mm_or_si128(first, second), _mm_or_si128(third, fourth));
    const __m128i marks = _mm_set1_epi32(static_cast<int>(0x808080F0));
    _mm_storeu_si128(reinterpret_cast<__m128i*>(target), _mm_or_si128(payload, marks));
    return true;
}

// kPairsLength bytes, which are four characters of four bytes, into kDenseUnits units.
inline bool DecodePairs(const std::uint8_t* source, char16_t* target) {
    using namespace vector_blocks;
    const __m128i bytes = _mm_loadu_si128(reinterpret_cast<const __m128i*>(source));
    const __m128i isMarked = AreEqual(Masked(bytes, 0xC0C0C0F8), 0x808080F0);
    const __m128i top =
        _mm_or_si128(Masked(_mm_slli_epi32(bytes, 8), 0x700), Masked(_mm_srli_epi32(bytes, 6), 0xFC));
    const __m128i code = _mm_or_si128(top, Masked(_mm_srli_epi32(bytes, 20), 3)); // without its low ten bits
    const __m128i high = _mm_sub_epi32(code, _mm_set1_epi32(0x40));
    const __m128i isBeyondBasic = AreEqual(Masked(high, 0xFFFFFC00), 0);
    if (!IsEverywhere(_mm_and_si128(isMarked, isBeyondBasic))) return false;
    const __m128i low =
        _mm_or_si128(Masked(_mm_slli_epi32(bytes, 6), 0x3C00000), Masked(_mm_srli_epi32(bytes, 8), 0x3F0000));
    const __m128i marks = _mm_set1_epi32(static_cast<int>(0xDC00D800));
    _mm_storeu_si128(reinterpret_cast<__m128i*>(target), _mm_or_si128(_mm_or_si128(high, low), marks));
    return true;
}

#else

inline bool EncodeThreeByteBlock(const char16_t*, std::uint8_t*) { return false; }
inline bool DecodeThreeByteBlock(const std::uint8_t*, char16_t*) { return false; }
inline bool EncodePairs(const char16_t*, std::uint8_t*) { return false; }
inline bool DecodePairs(const std::uint8_t*, char16_t*) { return false; }

#endif

} // namespace brixen::lyr::gen
