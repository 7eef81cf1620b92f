#include "workflow/platform/region.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace brixen::pvn::pvn_workflow::platform {
namespace {

TEST(RegionPlatform, TheCountryIsACodeOfTwoCapitalLettersOrEmpty) {
    const std::string country = UserCountry();
    EXPECT_TRUE(country.empty() || country.size() == 2) << country;
    EXPECT_TRUE(std::ranges::all_of(country, [](char letter) { return letter >= 'A' && letter <= 'Z'; }));
}

TEST(RegionPlatform, WordsSortByTheirLetters) {
    for (const char* locale : {"en_US", "de_DE", "fr_FR", "ja_JP", "he_IL", "ar_AE", "no_such_locale", ""}) {
        EXPECT_LT(SortKey(locale, u"Angola"), SortKey(locale, u"Belgium")) << locale;
        EXPECT_LT(SortKey(locale, u"Chad"), SortKey(locale, u"Chile")) << locale;
        EXPECT_LT(SortKey(locale, u"Niger"), SortKey(locale, u"Nigeria")) << locale;
        EXPECT_EQ(SortKey(locale, u"Chad"), SortKey(locale, u"Chad")) << locale;
    }
}

TEST(RegionPlatform, AnEmptyTextComesFirst) { EXPECT_LT(SortKey("en_US", u""), SortKey("en_US", u"A")); }

} // namespace
} // namespace brixen::pvn::pvn_workflow::platform
