#include "values/unicode/ascii_block.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <vector>

using namespace brixen::lyr::gen;

namespace {

template <class Unit>
using Block = std::array<Unit, kCountedBytes>;

// Blocks with each of the `odd` units at each place among units of the other kinds.
template <class Unit>
std::vector<Block<Unit>> BlocksWith(const std::vector<Unit>& odd) {
    std::vector<Block<Unit>> all;
    for (const Unit around : odd) {
        for (const Unit unit : odd) {
            for (std::size_t at = 0; at < kCountedBytes; ++at) {
                Block<Unit> block;
                block.fill(around);
                block[at] = unit;
                all.push_back(block);
            }
        }
    }
    return all;
}

const std::vector<std::uint8_t> kBytes = {0x00, 'a',  0x7F, 0x80, 0xBF, 0xC0, 0xC3,
                                          0xDF, 0xE2, 0xEF, 0xF0, 0xF4, 0xFF};
const std::vector<char16_t> kUnits = {0x0000, u'a',   0x007F, 0x0080, 0x00FF, 0x0100, 0x07FF, 0x0800, 0x7FFF,
                                      0x8000, 0xD7FF, 0xD800, 0xDBFF, 0xDC00, 0xDFFF, 0xE000, 0xFF80, 0xFFFF};

TEST(AsciiBlock, WidensEightBytesWithAndWithoutVectors) {
    for (const auto& block : BlocksWith(kBytes)) {
        const auto bytes = ReadWord<std::uint64_t>(block.data());
        std::array<char16_t, kAsciiBlock> scalar{};
        std::array<char16_t, kAsciiBlock> vector{};
        scalar_blocks::WidenBlock(bytes, scalar.data());
        blocks::WidenBlock(bytes, vector.data());
        ASSERT_EQ(scalar, vector);
        ASSERT_TRUE(std::equal(scalar.begin(), scalar.end(), block.begin()));
    }
}

// Either way of narrowing marks what is not ASCII, and keeps what is.
void ExpectNarrowed(const NarrowedBlock& narrowed, const Block<char16_t>& block, std::ptrdiff_t from) {
    for (std::ptrdiff_t i = from; i < kAsciiBlock; ++i) {
        const char16_t unit = block[static_cast<std::size_t>(i)];
        ASSERT_EQ((narrowed.special >> (i - from) & 1) != 0, unit >= 0x80);
        if (unit < 0x80) {
            ASSERT_EQ(narrowed.bytes >> (8 * (i - from)) & 0xFF, unit);
        }
    }
    ASSERT_EQ(narrowed.special >> (kAsciiBlock - from), 0U);
}

TEST(AsciiBlock, NarrowsEightUnitsWithAndWithoutVectors) {
    for (const auto& block : BlocksWith(kUnits)) {
        for (std::ptrdiff_t from = 0; from < kAsciiBlock; ++from) {
            ExpectNarrowed(scalar_blocks::NarrowBlock(block.data()).From(from), block, from);
            ExpectNarrowed(blocks::NarrowBlock(block.data()).From(from), block, from);
        }
    }
}

TEST(AsciiBlock, WritesTheWordThatItRead) {
    const std::array<std::uint8_t, 8> bytes = {1, 2, 3, 4, 5, 6, 7, 0x88};
    std::array<std::uint8_t, 8> written{};
    EXPECT_EQ(ReadWord<std::uint32_t>(bytes.data()), 0x04030201U);
    WriteWord(written.data(), ReadWord<std::uint64_t>(bytes.data()));
    EXPECT_EQ(written, bytes);
}

TEST(AsciiBlock, CountsTheUnitsOfItsBytes) {
    for (const auto& block : BlocksWith(kBytes)) {
        std::size_t units = 0;
        for (const std::uint8_t byte : block) units += byte < 0x80 || byte >= 0xC0 ? byte >= 0xF0 ? 2 : 1 : 0;
        ASSERT_EQ(scalar_blocks::Utf16UnitsOfBlock(block.data()), units);
        ASSERT_EQ(blocks::Utf16UnitsOfBlock(block.data()), units);
    }
}

TEST(AsciiBlock, CountsTheBytesOfItsUnits) {
    for (const auto& block : BlocksWith(kUnits)) {
        std::size_t bytes = 0;
        for (std::size_t i = 0; i < kAsciiBlock; ++i) {
            const char16_t unit = block[i];
            const bool surrogate = unit >= 0xD800 && unit <= 0xDFFF;
            bytes += unit < 0x80 ? 1 : unit < 0x800 || surrogate ? 2 : 3;
        }
        ASSERT_EQ(scalar_blocks::Utf8BytesOfUnits(block.data()), bytes);
        ASSERT_EQ(blocks::Utf8BytesOfUnits(block.data()), bytes);
    }
}

} // namespace
