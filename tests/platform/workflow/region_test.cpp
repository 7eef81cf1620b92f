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

} // namespace
} // namespace brixen::pvn::pvn_workflow::platform
