#pragma once

#include "compiler.h"

#include <array>
#include <bit>
#include <cstddef>
#include <string_view>

namespace kestrel_private {

using UnitPair = std::array<char16_t, 2>;

// Where the two units first stand side by side in the text; npos when they do not. Eight places at a time
// where the processor has vectors: what is looked for is rare in a text.
inline std::size_t FindPair(std::u16string_view text, const UnitPair& pair) {
    std::size_t at = 0;
#if defined(PVN_HAS_SSE2)
    const __m128i firsts = _mm_set1_epi16(static_cast<short>(pair[0]));
    const __m128i seconds = _mm_set1_epi16(static_cast<short>(pair[1]));
    for (; text.size() - at > 8; at += 8) {
        const auto* const here = reinterpret_cast<const __m128i*>(text.data() + at);
        const auto* const behind = reinterpret_cast<const __m128i*>(text.data() + at + 1);
        const __m128i places = _mm_and_si128(_mm_cmpeq_epi16(_mm_loadu_si128(here), firsts),
                                             _mm_cmpeq_epi16(_mm_loadu_si128(behind), seconds));
        const auto bytes = static_cast<unsigned>(_mm_movemask_epi8(places));
        if (bytes != 0) return at + static_cast<std::size_t>(std::countr_zero(bytes)) / sizeof(char16_t);
    }
#endif
    return text.find(pair.data(), at, pair.size());
}

} // namespace kestrel_private
