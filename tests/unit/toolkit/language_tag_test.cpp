#include "toolkit/language_tag.h"

#include <gtest/gtest.h>

#include <string>

namespace brixen::zeve {
namespace {

TEST(LanguageTag, HasFiveCharactersInLowerCaseWithAHyphen) {
    EXPECT_EQ(NormalizeLanguage("ja_JP"), "ja-jp");
    EXPECT_EQ(NormalizeLanguage("JA-jp"), "ja-jp");
    EXPECT_EQ(NormalizeLanguage("zh?TW.utf8"), "zh-tw");
    EXPECT_EQ(NormalizeLanguage("he_IL.utf8"), "he-il");
    EXPECT_EQ(NormalizeLanguage("[@`{"), "[@-{"); // the neighbors of the letters
    EXPECT_EQ(NormalizeLanguage("AZ_az"), "az-az");
}

TEST(LanguageTag, OfAShortNameKeepsItsLength) {
    for (const char* name : {"", "d", "de"}) {
        const std::string tag = NormalizeLanguage(name);
        EXPECT_EQ(tag, name);
        EXPECT_STREQ(tag.c_str(), name);
    }
    EXPECT_EQ(NormalizeLanguage("de_"), "de-");
    EXPECT_EQ(NormalizeLanguage("AR"), "ar");
}

TEST(LanguageTag, OfTwoLanguagesMeansRightToLeft) {
    for (const char* name : {"ar_AE", "AR-ae", "he_IL", "he-il.x"})
        EXPECT_TRUE(IsRightToLeftLanguage(name)) << name;
    for (const char* name : {"", "ar", "ar_EG", "ar_SA", "he", "iw_IL", "de_DE", "en_US"}) {
        EXPECT_FALSE(IsRightToLeftLanguage(name)) << name;
    }
}

} // namespace
} // namespace brixen::zeve
