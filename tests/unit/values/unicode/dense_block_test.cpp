#include "values/unicode/dense_block.h"

#include "values/unicode/text_conversion.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <string>
#include <vector>

using namespace brixen::lyr::gen;

namespace {

#ifdef PVN_HAS_SSE2
constexpr bool kHasVectors = true;
#else
constexpr bool kHasVectors = false;
#endif

// The borders of the characters that take three bytes and of those that take four, and others around them.
const std::vector<char32_t> kThreeByteCodes = {0x800, 0xFFF, 0x1000, 0x3042, 0x8A2D, 0xD7FF, 0xE000, 0xFFFF};
const std::vector<char32_t> kPairCodes = {0x10000, 0x1F600, 0x2FFFF, 0x3FFFF, 0x40000, 0xFFFFF, 0x10FFFF};
const std::vector<char32_t> kOtherCodes = {0x00, 0x61, 0x7F, 0x80, 0xFF, 0x7FF};

// `count` characters, each of `around` with each of `odd` at each place.
std::vector<std::u32string> Texts(const std::vector<char32_t>& around, const std::vector<char32_t>& odd,
                                  std::size_t count) {
    std::vector<std::u32string> texts;
    for (const char32_t code : around) {
        for (const char32_t other : odd) {
            for (std::size_t at = 0; at < count; ++at) {
                texts.emplace_back(count, code);
                texts.back()[at] = other;
            }
        }
    }
    return texts;
}

template <class Text, class Convert>
Text Converted(const std::u32string& text, const Convert& convert) {
    std::array<typename Text::value_type, 64> target{};
    const char32_t* source = text.data();
    auto* end = target.data();
    EXPECT_EQ(convert(source, text.data() + text.size(), end, target.data() + target.size(), false),
              ConversionResult::ConversionOk);
    return {target.data(), end};
}

using Bytes = std::basic_string<std::uint8_t>;
Bytes Utf8(const std::u32string& text) { return Converted<Bytes>(text, ConvertUtf32ToUtf8); }
std::u16string Utf16(const std::u32string& text) {
    return Converted<std::u16string>(text, ConvertUtf32ToUtf16);
}

using Encode = bool (*)(const char16_t*, std::uint8_t*);
using Decode = bool (*)(const std::uint8_t*, char16_t*);

// Expects the whole of `text` to be encoded and nothing to be written after `room`.
void ExpectEncoded(Encode encode, const std::u32string& text, std::size_t room) {
    const Bytes expected = Utf8(text);
    Bytes target(room + 1, 0xAA);
    ASSERT_EQ(encode(Utf16(text).data(), target.data()), kHasVectors);
    ASSERT_EQ(target[room], 0xAA);
    if (kHasVectors) {
        ASSERT_EQ(target.substr(0, expected.size()), expected);
    }
}

void ExpectDecoded(Decode decode, const std::u32string& text) {
    const std::u16string expected = Utf16(text);
    std::u16string target(expected.size() + 1, u'?');
    ASSERT_EQ(decode(Utf8(text).data(), target.data()), kHasVectors);
    if (kHasVectors) {
        ASSERT_EQ(target, expected + u'?');
    }
}

TEST(DenseBlock, ConvertsThreeByteCharactersBothWays) {
    for (const auto& text : Texts(kThreeByteCodes, kThreeByteCodes, kDenseUnits)) {
        ExpectEncoded(EncodeThreeByteBlock, text, kThreeByteRoom);
        ExpectDecoded(DecodeThreeByteBlock, text);
    }
}

TEST(DenseBlock, ConvertsPairsBothWays) {
    for (const auto& text : Texts(kPairCodes, kPairCodes, kDenseUnits / 2)) {
        ExpectEncoded(EncodePairs, text, kPairsLength);
        ExpectDecoded(DecodePairs, text);
    }
}

TEST(DenseBlock, LeavesOtherCharactersAlone) {
    for (const std::vector<char32_t>& odd : {kOtherCodes, kPairCodes}) {
        for (const auto& text : Texts(kThreeByteCodes, odd, kDenseUnits)) {
            std::array<std::uint8_t, kThreeByteRoom> target{};
            ASSERT_FALSE(EncodeThreeByteBlock(Utf16(text).data(), target.data()));
        }
    }
    for (const std::vector<char32_t>& odd : {kOtherCodes, kThreeByteCodes}) {
        for (const auto& text : Texts(kPairCodes, odd, kDenseUnits)) {
            std::array<std::uint8_t, kPairsLength> target{};
            const auto front = std::find_first_of(text.begin(), text.end(), odd.begin(), odd.end());
            if (front - text.begin() >= kDenseUnits / 2) continue;
            ASSERT_FALSE(EncodePairs(Utf16(text).data(), target.data()));
        }
    }
}

// A block with each unit at each place, which is legal with none of them.
TEST(DenseBlock, RefusesHalfPairs) {
    for (const char16_t half : {u'\xD800', u'\xDBFF', u'\xDC00', u'\xDFFF'}) {
        for (std::size_t at = 0; at < kDenseUnits; ++at) {
            std::array<std::uint8_t, kThreeByteRoom> target{};
            std::u16string kanji(kDenseUnits, u'\u8A2D');
            kanji[at] = half;
            ASSERT_FALSE(EncodeThreeByteBlock(kanji.data(), target.data()));
            std::u16string pairs = Utf16(std::u32string(kDenseUnits / 2, 0x1F600));
            pairs[at] = at % 2 == 0 ? u'\xDC00' : u'\xD800';
            ASSERT_FALSE(EncodePairs(pairs.data(), target.data()));
        }
    }
}

// Every value of every byte, one at a time: a block is taken when the careful converter takes it and it has
// the right number of units.
void ExpectOnlyLegalBytes(Decode decode, const std::u32string& text, std::ptrdiff_t units) {
    const Bytes legal = Utf8(text);
    for (std::size_t at = 0; at < legal.size(); ++at) {
        for (int value = 0; value < 256; ++value) {
            Bytes bytes = legal;
            bytes[at] = static_cast<std::uint8_t>(value);
            std::array<char16_t, 64> careful{};
            std::array<char16_t, 64> quick{};
            const std::uint8_t* source = bytes.data();
            char16_t* target = careful.data();
            const auto result =
                ConvertUtf8ToUtf16(source, bytes.data() + bytes.size(), target, careful.data() + 64, false);
            const bool isTaken = result == ConversionResult::ConversionOk && target - careful.data() == units;
            ASSERT_EQ(decode(bytes.data(), quick.data()), kHasVectors && isTaken) << at << " " << value;
            if (kHasVectors && isTaken) {
                ASSERT_EQ(quick, careful) << at << " " << value;
            }
        }
    }
}

TEST(DenseBlock, DecodesLegalBytesOnly) {
    for (const char32_t code : kThreeByteCodes) {
        ExpectOnlyLegalBytes(DecodeThreeByteBlock, std::u32string(kDenseUnits, code), kDenseUnits);
    }
    for (const char32_t code : kPairCodes) {
        ExpectOnlyLegalBytes(DecodePairs, std::u32string(kDenseUnits / 2, code), kDenseUnits);
    }
}

} // namespace
