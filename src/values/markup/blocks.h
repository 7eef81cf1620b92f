// Searches in markup by blocks of bytes instead of single ones. Private to the markup document.
#pragma once

#include "compiler.h"

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>

namespace brixen::lyr::gen {

inline constexpr std::ptrdiff_t kTagStartBlock = 64;
inline constexpr std::ptrdiff_t kNameBlock = 16;

// The reference for the functions below, and all there is on processors without vectors.
namespace scalar_markup {

// One bit for each `<` among 64 bytes.
inline std::uint64_t TagStartsOf(const char* block) {
    std::uint64_t mask = 0;
    for (unsigned i = 0; i < kTagStartBlock; ++i) mask |= static_cast<std::uint64_t>(block[i] == '<') << i;
    return mask;
}

// One bit for each of sixteen bytes that is the same in both and no quote. `#` and `&`, which no name holds,
// count as quotes.
inline std::uint32_t CommonNameBytes(const char* left, const char* right) {
    std::uint32_t mask = 0;
    for (unsigned i = 0; i < kNameBlock; ++i) {
        const bool common = left[i] == right[i] && (left[i] | 5) != '\'';
        mask |= static_cast<std::uint32_t>(common) << i;
    }
    return mask;
}

// One bit for each of sixteen bytes that is `wanted`.
inline std::uint32_t BytesEqual(const char* block, char wanted) {
    std::uint32_t mask = 0;
    for (unsigned i = 0; i < kNameBlock; ++i) mask |= static_cast<std::uint32_t>(block[i] == wanted) << i;
    return mask;
}

// One bit for each of sixteen bytes that is a quote of either kind, or `/`, `?` or `>`, which end a tag's
// attributes.
inline std::uint32_t QuotesAndEnds(const char* block) {
    std::uint32_t mask = 0;
    for (unsigned i = 0; i < kNameBlock; ++i) {
        const bool marked = block[i] == '"' || (block[i] | 8) == '/' || (block[i] | 1) == '?';
        mask |= static_cast<std::uint32_t>(marked) << i;
    }
    return mask;
}

// One bit for each of sixteen bytes that needs a reference, in an attribute's value or in content.
inline std::uint32_t SpecialBytes(const char* block, bool attribute) {
    std::uint32_t mask = 0;
    for (unsigned i = 0; i < kNameBlock; ++i) {
        const bool inContent = block[i] == '&' || (block[i] | 2) == '>';
        const bool inAttribute = block[i] == '"' || block[i] == '\'';
        mask |= static_cast<std::uint32_t>(inContent || (attribute && inAttribute)) << i;
    }
    return mask;
}

} // namespace scalar_markup

#ifdef PVN_HAS_SSE2

namespace vector_markup {

inline __m128i Load(const char* bytes) { return _mm_loadu_si128(reinterpret_cast<const __m128i*>(bytes)); }

inline std::uint32_t MaskOf(__m128i bytes) { return static_cast<std::uint32_t>(_mm_movemask_epi8(bytes)); }

inline std::uint64_t TagStartsOf(const char* block) {
    const __m128i start = _mm_set1_epi8('<');
    const auto part = [&](std::ptrdiff_t at) {
        return static_cast<std::uint64_t>(MaskOf(_mm_cmpeq_epi8(Load(block + at), start)));
    };
    return part(0) | part(16) << 16 | part(32) << 32 | part(48) << 48;
}

inline std::uint32_t CommonNameBytes(const char* left, const char* right) {
    const __m128i bytes = Load(left);
    const __m128i quotes = _mm_cmpeq_epi8(_mm_or_si128(bytes, _mm_set1_epi8(5)), _mm_set1_epi8('\''));
    return MaskOf(_mm_andnot_si128(quotes, _mm_cmpeq_epi8(bytes, Load(right))));
}

inline std::uint32_t BytesEqual(const char* block, char wanted) {
    return MaskOf(_mm_cmpeq_epi8(Load(block), _mm_set1_epi8(wanted)));
}

// In two pairs the bytes differ in one bit: `'` and `/`, `>` and `?`.
inline std::uint32_t QuotesAndEnds(const char* block) {
    const __m128i bytes = Load(block);
    const __m128i slashes = _mm_cmpeq_epi8(_mm_or_si128(bytes, _mm_set1_epi8(8)), _mm_set1_epi8('/'));
    const __m128i marks = _mm_cmpeq_epi8(_mm_or_si128(bytes, _mm_set1_epi8(1)), _mm_set1_epi8('?'));
    return MaskOf(_mm_or_si128(_mm_or_si128(slashes, marks), _mm_cmpeq_epi8(bytes, _mm_set1_epi8('"'))));
}

inline std::uint32_t SpecialBytes(const char* block, bool attribute) {
    const __m128i bytes = Load(block);
    const __m128i brackets = _mm_cmpeq_epi8(_mm_or_si128(bytes, _mm_set1_epi8(2)), _mm_set1_epi8('>'));
    if (!attribute) return MaskOf(_mm_or_si128(brackets, _mm_cmpeq_epi8(bytes, _mm_set1_epi8('&'))));
    // `&` and `'` differ in one bit.
    const __m128i others = _mm_cmpeq_epi8(_mm_or_si128(bytes, _mm_set1_epi8(1)), _mm_set1_epi8('\''));
    return MaskOf(_mm_or_si128(_mm_or_si128(brackets, others), _mm_cmpeq_epi8(bytes, _mm_set1_epi8('"'))));
}

} // namespace vector_markup

namespace markup_blocks = vector_markup;

#else

namespace markup_blocks = scalar_markup;

#endif

struct NameBlock {
    char bytes[kNameBlock];
};

// Fewer than sixteen bytes, padded with zeros.
inline NameBlock PaddedBlock(const char* bytes, std::ptrdiff_t count) {
    NameBlock block{};
    std::memcpy(block.bytes, bytes, static_cast<std::size_t>(count));
    return block;
}

// The mask of the sixteen bytes at `from`, of a text that may be read up to `readable`.
template <class BlockMask>
std::uint32_t MaskAt(const char* text, std::ptrdiff_t from, std::ptrdiff_t readable, BlockMask blockMask) {
    if (readable - from >= kNameBlock) return blockMask(text + from);
    return blockMask(PaddedBlock(text + from, readable - from).bytes);
}

// The first byte of [from, to) that `blockMask` marks, or `to`. The text may be read up to `readable`, so
// that short stretches within a longer text need no loop. The C library's search is slow on some systems.
template <class BlockMask>
std::ptrdiff_t FindInBlocks(const char* text, std::ptrdiff_t from, std::ptrdiff_t to, std::ptrdiff_t readable,
                            BlockMask blockMask) {
    for (; from < to; from += kNameBlock) {
        const std::uint32_t mask = MaskAt(text, from, readable, blockMask);
        if (mask != 0) return std::min(from + std::countr_zero(mask), to);
    }
    return to;
}

inline std::ptrdiff_t FindByte(const char* text, std::ptrdiff_t from, std::ptrdiff_t to,
                               std::ptrdiff_t readable, char wanted) {
    return FindInBlocks(text, from, to, readable,
                        [wanted](const char* block) { return markup_blocks::BytesEqual(block, wanted); });
}

// The first byte that is `wanted`, or a place after `last`. Sixteen bytes from `last` on may be read.
inline std::ptrdiff_t FindByte(const char* text, std::ptrdiff_t from, std::ptrdiff_t last, char wanted) {
    for (; from <= last; from += kNameBlock) {
        const std::uint32_t mask = markup_blocks::BytesEqual(text + from, wanted);
        if (mask != 0) return from + std::countr_zero(mask);
    }
    return from;
}

// Walks over the quotes of a tag and the bytes that may end it. The caller stops at the byte that does;
// sixteen bytes from there on may be read.
class TagMarks {
public:
    TagMarks(const char* text, std::ptrdiff_t from)
        : text(text), block(from), mask(markup_blocks::QuotesAndEnds(text + from)) {}

    std::ptrdiff_t Next() {
        while (mask == 0) {
            block += kNameBlock;
            mask = markup_blocks::QuotesAndEnds(text + block);
        }
        const std::ptrdiff_t at = block + std::countr_zero(mask);
        mask &= mask - 1;
        return at;
    }

private:
    const char* text;
    std::ptrdiff_t block; // of the mask
    std::uint32_t mask;
};

// Walks over the `<` of a text. It finds none in a text that is shorter than a block.
class TagStarts {
public:
    TagStarts(const char* text, std::ptrdiff_t from, std::ptrdiff_t end)
        : text(text), end(end), base(from - kTagStartBlock) {}

    // The place of the next one, or the end of the text.
    std::ptrdiff_t Next() {
        while (mask == 0) {
            base += kTagStartBlock;
            if (base >= end) return end;
            mask = MaskAt(base);
        }
        const std::ptrdiff_t at = base + std::countr_zero(mask);
        mask &= mask - 1;
        return at;
    }

private:
    // The last block begins earlier, so that nothing after the text is read.
    std::uint64_t MaskAt(std::ptrdiff_t at) const {
        const std::ptrdiff_t block = std::min(at, end - kTagStartBlock);
        return block < 0 ? 0 : markup_blocks::TagStartsOf(text + block) >> (at - block);
    }

    const char* text;
    std::ptrdiff_t end;
    std::ptrdiff_t base; // the block of the mask
    std::uint64_t mask = 0;
};

} // namespace brixen::lyr::gen
