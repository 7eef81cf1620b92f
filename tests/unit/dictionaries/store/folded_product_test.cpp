#include "dictionaries/store/folded_product.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <random>

namespace kestrel_private {
namespace {

constexpr std::uint64_t kAllBits = ~std::uint64_t{};

TEST(FoldedProduct, FoldsBothHalves) {
    EXPECT_EQ(FoldedProduct(3, 5), 15u);
    EXPECT_EQ(FoldedProduct(std::uint64_t{1} << 63, 2), 1u);
    EXPECT_EQ(FoldedProduct(kAllBits, kAllBits), kAllBits) << "upper half ...FE, lower half 1";
    EXPECT_EQ(FoldedProduct(0x123456789, 0x1000000000), 0x12u ^ 0x3456789000000000u);
}

TEST(FoldedProduct, IsTheSameWithoutWideIntegers) {
    std::mt19937_64 random(1);
    for (int i = 0; i < 1000; ++i) {
        const std::uint64_t one = random() >> (i % 64);
        const std::uint64_t other = random() >> (i / 16);
        ASSERT_EQ(plain::FoldedProduct(one, other), FoldedProduct(one, other)) << one << " * " << other;
    }
    EXPECT_EQ(plain::FoldedProduct(kAllBits, kAllBits), kAllBits);
}

} // namespace
} // namespace kestrel_private
