#include "values/unicode/character_borders.h"

#include <gtest/gtest.h>

namespace brixen::lyr::gen {
namespace {

TEST(CharacterBorders, ACharacterBeginsWithAnythingButATrailingByte) {
    for (const char byte : {'\0', 'a', '\x7F', '\xC3', '\xE4', '\xF0', '\xFF'})
        EXPECT_TRUE(BeginsCharacter(byte));
    for (const char byte : {'\x80', '\xA0', '\xBF'}) EXPECT_FALSE(BeginsCharacter(byte));
}

TEST(CharacterBorders, SurrogatesAreKnownByTheirHalf) {
    for (const char16_t unit : {u'\xD800', u'\xDBFF'}) {
        EXPECT_TRUE(IsHighSurrogate(unit));
        EXPECT_FALSE(IsLowSurrogate(unit));
    }
    for (const char16_t unit : {u'\xDC00', u'\xDFFF'}) {
        EXPECT_FALSE(IsHighSurrogate(unit));
        EXPECT_TRUE(IsLowSurrogate(unit));
    }
    for (const char32_t code : {0xD800u, 0xDBFFu, 0xDC00u, 0xDFFFu}) EXPECT_TRUE(IsSurrogate(code));
    for (const char32_t code : {0xD7FFu, 0xE000u, 0x1D800u, 0x10DC00u}) {
        EXPECT_FALSE(IsSurrogate(code));
        EXPECT_FALSE(IsHighSurrogate(code));
        EXPECT_FALSE(IsLowSurrogate(code));
    }
    for (const char16_t unit : {u'\xD7FF', u'\xE000', u'a'}) {
        EXPECT_FALSE(IsHighSurrogate(unit));
        EXPECT_FALSE(IsLowSurrogate(unit));
    }
}

TEST(CharacterBorders, OnlyTheMiddleOfAPairSplitsOne) {
    const std::u16string_view text = u"a\U0001F600b\xD83D"; // and a half by itself
    for (const std::size_t position : {0u, 1u, 3u, 4u, 5u, 6u})
        EXPECT_FALSE(SplitsPair(text, position)) << position;
    EXPECT_TRUE(SplitsPair(text, 2));
}

TEST(CharacterBorders, ACutNeverEndsInHalfAPair) {
    EXPECT_EQ(CutToUnits(u"abc", 3), u"abc");
    EXPECT_EQ(CutToUnits(u"abc", 2), u"ab");
    EXPECT_EQ(CutToUnits(u"a\U0001F600b", 2), u"a");
    EXPECT_EQ(CutToUnits(u"a\U0001F600b", 3), u"a\U0001F600");
    EXPECT_EQ(CutToUnits(u"\U0001F600", 1), u"");
}

TEST(CharacterBorders, WhatIsNotCutKeepsItsHalves) { EXPECT_EQ(CutToUnits(u"a\xD83D", 2), u"a\xD83D"); }

} // namespace
} // namespace brixen::lyr::gen
