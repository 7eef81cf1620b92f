// The program's own table of languages is the one in resources/languages.
#include "frame/shipped_languages.h"

#include "support/languages.h"

#include <gtest/gtest.h>

namespace brixen::pvn {
namespace {

TEST(ShippedLanguageTable, HoldsEveryRowInItsOrder) {
    const std::vector<pavane_test::Language>& rows = pavane_test::Languages();
    ASSERT_EQ(ShippedLanguages().size(), rows.size());
    for (std::size_t i = 0; i < rows.size(); ++i) {
        EXPECT_EQ(ShippedLanguages()[i].locale, rows[i].locale);
        EXPECT_EQ(ShippedLanguages()[i].isRightToLeft, rows[i].isRightToLeft) << rows[i].locale;
    }
}

TEST(ShippedLanguageTable, HoldsEnglishHebrewAndArabic) {
    ASSERT_NE(FindShippedLanguage("en_US"), nullptr);
    EXPECT_FALSE(FindShippedLanguage("en_US")->isRightToLeft);
    for (const char* locale : {"he_IL", "ar_AE"}) {
        ASSERT_NE(FindShippedLanguage(locale), nullptr) << locale;
        EXPECT_TRUE(FindShippedLanguage(locale)->isRightToLeft) << locale;
    }
}

TEST(ShippedLanguageTable, FindsALocaleOnlyAsItIsWritten) {
    for (const char* locale : {"", "en", "en_us", "en-US", "en_US ", "ar_SA"})
        EXPECT_EQ(FindShippedLanguage(locale), nullptr) << locale;
}

} // namespace
} // namespace brixen::pvn
