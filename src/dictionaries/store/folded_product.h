// Mixes two words for the hash of the index.
#pragma once

#include "compiler.h"

#include <cstdint>

namespace kestrel_private {

// The product of two words, its upper half folded onto its lower half by exclusive or. For compilers without
// 128-bit integers.
namespace plain {

constexpr std::uint64_t FoldedProduct(std::uint64_t one, std::uint64_t other) {
    constexpr std::uint64_t kLow = 0xFFFFFFFF;
    const std::uint64_t low = (one & kLow) * (other & kLow);
    const std::uint64_t crossed = (one >> 32) * (other & kLow) + (low >> 32);
    const std::uint64_t middle = (one & kLow) * (other >> 32) + (crossed & kLow);
    const std::uint64_t upper = (one >> 32) * (other >> 32) + (crossed >> 32) + (middle >> 32);
    return upper ^ (one * other);
}

} // namespace plain

#if defined(PVN_HAS_INT128)

constexpr std::uint64_t FoldedProduct(std::uint64_t one, std::uint64_t other) {
    __extension__ using Product = unsigned __int128;
    const Product product = static_cast<Product>(one) * other;
    return static_cast<std::uint64_t>(product) ^ static_cast<std::uint64_t>(product >> 64);
}

#else

using plain::FoldedProduct;

#endif

} // namespace kestrel_private
