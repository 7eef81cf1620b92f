#include "values/ascii_block.h"

#include <gtest/gtest.h>

#include <array>
#include <vector>

using namespace brixen::lyr::gen;

namespace {

constexpr std::size_t kHalfBlock = kAsciiBlock / 2;

template <class Unit>
using Block = std::array<Unit, kAsciiBlock>;

// Blocks with each of the `odd` units at each place among units of the other kinds.
template <class Unit>
std::vector<Block<Unit>> BlocksWith(const std::vector<Unit>& odd) {
    std::vector<Block<Unit>> all;
    for (const Unit around : odd) {
        for (const Unit unit : odd) {
            for (std::size_t at = 0; at < kAsciiBlock; ++at) {
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

template <class Unit>
std::size_t AsciiFront(const Block<Unit>& block, std::size_t length) {
    std::size_t count = 0;
    while (count < length && block[count] < 0x80) ++count;
    return count;
}

// Moves `block` by either way of doing it, and expects the front that is ASCII.
template <class Target, class Unit, class Move>
void ExpectFront(const Block<Unit>& block, std::size_t length, const Move& move) {
    Block<Target> moved{};
    const std::size_t count = move(block.data(), moved.data());
    ASSERT_EQ(count, AsciiFront(block, length));
    for (std::size_t i = 0; i < count; ++i) ASSERT_EQ(moved[i], block[i]) << i;
}

TEST(AsciiBlock, WidensItsFrontWithAndWithoutVectors) {
    for (const auto& block : BlocksWith(kBytes)) {
        ExpectFront<char16_t>(block, kAsciiBlock, scalar_blocks::WidenAsciiBlock);
        ExpectFront<char16_t>(block, kAsciiBlock, blocks::WidenAsciiBlock);
        ExpectFront<char16_t>(block, kHalfBlock, scalar_blocks::WidenAsciiHalfBlock);
        ExpectFront<char16_t>(block, kHalfBlock, blocks::WidenAsciiHalfBlock);
    }
}

TEST(AsciiBlock, NarrowsItsFrontWithAndWithoutVectors) {
    for (const auto& block : BlocksWith(kUnits)) {
        ExpectFront<std::uint8_t>(block, kAsciiBlock, scalar_blocks::NarrowAsciiBlock);
        ExpectFront<std::uint8_t>(block, kAsciiBlock, blocks::NarrowAsciiBlock);
    }
}

TEST(AsciiBlock, CountsTheUnitsThatItsBytesStart) {
    for (const auto& block : BlocksWith(kBytes)) {
        std::size_t units = 0;
        for (const std::uint8_t byte : block) units += byte < 0x80 || byte >= 0xC0 ? byte >= 0xF0 ? 2 : 1 : 0;
        ASSERT_EQ(scalar_blocks::Utf16UnitsOfBlock(block.data()), units);
        ASSERT_EQ(blocks::Utf16UnitsOfBlock(block.data()), units);
    }
}

TEST(AsciiBlock, CountsTheBytesThatItsUnitsGive) {
    for (const auto& block : BlocksWith(kUnits)) {
        std::size_t bytes = 0;
        for (std::size_t i = 0; i < kHalfBlock; ++i) {
            const char16_t unit = block[i];
            const bool surrogate = unit >= 0xD800 && unit <= 0xDFFF;
            bytes += unit < 0x80 ? 1 : unit < 0x800 || surrogate ? 2 : 3;
        }
        ASSERT_EQ(scalar_blocks::Utf8BytesOfUnits(block.data()), bytes);
        ASSERT_EQ(blocks::Utf8BytesOfUnits(block.data()), bytes);
    }
}

} // namespace
