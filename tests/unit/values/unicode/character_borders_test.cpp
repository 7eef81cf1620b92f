#include "values/unicode/character_borders.h"

#include <gtest/gtest.h>

namespace brixen::lyr::gen {
namespace {

TEST(CharacterBorders, ACharacterBeginsWithAnythingButATrailingByte) {
    for (const char byte : {'\0', 'a', '\x7F', '\xC3', '\xE4', '\xF0', '\xFF'}) {
        EXPECT_TRUE(BeginsCharacter(byte));
    }
    for (const char byte : {'\x80', '\xA0', '\xBF'}) EXPECT_FALSE(BeginsCharacter(byte));
}

TEST(CharacterBorders, OnlyTheMiddleOfAPairSplitsOne) {
    const std::u16string_view text = u"a\U0001F600b\xD83D"; // and a half by itself
    for (const std::size_t position : {0u, 1u, 3u, 4u, 5u, 6u}) {
        EXPECT_FALSE(SplitsPair(text, position)) << position;
    }
    EXPECT_TRUE(SplitsPair(text, 2));
}

TEST(CharacterBorders, ACutNeverEndsInHalfAPair) {
    EXPECT_EQ(CutToUnits(u"abc", 3), u"abc");
    EXPECT_EQ(CutToUnits(u"abc", 2), u"ab");
    EXPECT_EQ(CutToUnits(u"a\U0001F600b", 2), u"a");
    EXPECT_EQ(CutToUnits(u"a\U0001F600b", 3), u"a\U0001F600");
    EXPECT_EQ(CutToUnits(u"\U0001F600", 1), u"");
}

TEST(CharacterBorders, ATextThatIsNotCutKeepsItsHalves) { EXPECT_EQ(CutToUnits(u"a\xD83D", 2), u"a\xD83D"); }

TEST(CharacterBorders, ACutNeverEndsInPartOfACharacter) {
    EXPECT_EQ(CutToBytes("abc", 3), "abc");
    EXPECT_EQ(CutToBytes("abc", 2), "ab");
    EXPECT_EQ(CutToBytes("a\xE2\x82\xAC", 3), "a");
    EXPECT_EQ(CutToBytes("a\xE2\x82\xACz", 4), "a\xE2\x82\xAC");
    EXPECT_EQ(CutToBytes("\xE2\x82\xAC", 2), "");
    EXPECT_EQ(CutToBytes("\x82\x82\x82", 1), "") << "a text of trailing bytes alone";
    EXPECT_EQ(CutToBytes("a\xE2\x82", 3), "a\xE2\x82") << "a text that is not cut";
}

TEST(CharacterBorders, TheFirstCharacterEndsBeforeTheSecond) {
    EXPECT_EQ(FirstCharacter(""), "");
    EXPECT_EQ(FirstCharacter("ab"), "a");
    EXPECT_EQ(FirstCharacter("\xE2\x82\xAC\xE2\x82\xAC"), "\xE2\x82\xAC");
    EXPECT_EQ(FirstCharacter("\x82\x82z"), "\x82\x82") << "a text that begins with trailing bytes";
}

} // namespace
} // namespace brixen::lyr::gen
