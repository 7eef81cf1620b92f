#include "workflow/catalogue/feedback_data.h"

#include <gtest/gtest.h>

namespace brixen::pvn::pvn_workflow {
namespace {

TEST(SendableNumber, IsInTheFormOfTheService) {
    for (const auto& [shown, number] : {std::pair{"72", "72"},
                                        {"2.8", "2.8"},
                                        {"-0.5", "-0.5"},
                                        {"+3", "3"},
                                        {".5", "0.5"},
                                        {"5.", "5"},
                                        {"1/250", "1/250"},
                                        {"3:2", "3/2"},
                                        {"1.85:1", "1.85"},
                                        {"16:1", "16"},
                                        {"007", "007"},
                                        {"123456789012345", "123456789012345"},
                                        {"123456789.012345", "123456789.012345"},
                                        {"123456789/123456789", "123456789/123456789"}})
        EXPECT_EQ(SendableNumber(shown), number) << shown;
}

TEST(SendableNumber, RefusesWhatTheServiceRefuses) {
    for (const char* shown : {"",
                              "-",
                              ".",
                              "+",
                              "x",
                              "1e3",
                              "1,5",
                              "1 000",
                              "1'000",
                              "0x10",
                              "inf",
                              "nan",
                              "1/0",
                              "1/000",
                              "1/",
                              "/2",
                              "1.5/2",
                              "1/2.5",
                              "-1/2",
                              "1/-2",
                              "1/2/3",
                              "3:2:1",
                              "--1",
                              "+-1x",
                              "1.2.3",
                              "5.-",
                              "1234567890123456",
                              "1.123456789012345",
                              "1000.000000000000001",
                              "1234567890/2",
                              "1/1234567890",
                              "\u0663"})
        EXPECT_EQ(SendableNumber(shown), std::nullopt) << shown;
}

TEST(IsWhole, IsTrueForDigitsAlone) {
    for (const char* number : {"0", "6000", "123456789012345"}) EXPECT_TRUE(IsWhole(number)) << number;
    for (const char* number : {"", "-1", "60.5", "60.0", "6/2"}) EXPECT_FALSE(IsWhole(number)) << number;
}

TEST(IsInLimits, KeepsBothEnds) {
    constexpr NumberLimits limits{.least = -2, .most = 3};
    EXPECT_TRUE(IsInLimits("-2", limits));
    EXPECT_TRUE(IsInLimits("3", limits));
    EXPECT_TRUE(IsInLimits("3.0", limits));
    EXPECT_TRUE(IsInLimits("6/2", limits));
    EXPECT_FALSE(IsInLimits("-2.001", limits));
    EXPECT_FALSE(IsInLimits("3.001", limits));
    EXPECT_FALSE(IsInLimits("7/2", limits));
}

TEST(IsInLimits, MayLeaveTheLeastOut) {
    constexpr NumberLimits limits{.least = 0, .most = 1000, .isAboveLeast = true};
    EXPECT_FALSE(IsInLimits("0", limits));
    EXPECT_FALSE(IsInLimits("0.000", limits));
    EXPECT_FALSE(IsInLimits("0/5", limits));
    EXPECT_TRUE(IsInLimits("1/250", limits));
    EXPECT_TRUE(IsInLimits("1000", limits));
}

TEST(IsInLimits, KeepsALeastThatIsNoWholeNumber) {
    constexpr NumberLimits limits{.least = 0.1, .most = 100'000};
    for (const char* number : {"0.1", "1/10", "0.100", "100000", "100000/1"})
        EXPECT_TRUE(IsInLimits(number, limits)) << number;
    for (const char* number : {"0.09999999999999", "1/11", "99999999/999999999", "0", "100000.00000001"})
        EXPECT_FALSE(IsInLimits(number, limits)) << number;
}

TEST(IsInLimits, MayAskForAWholeNumber) {
    constexpr NumberLimits limits{.least = 1, .most = 1'000'000, .isWhole = true};
    EXPECT_TRUE(IsInLimits("1", limits));
    EXPECT_TRUE(IsInLimits("1000000", limits));
    EXPECT_FALSE(IsInLimits("1000001", limits));
    EXPECT_FALSE(IsInLimits("60.5", limits));
    EXPECT_FALSE(IsInLimits("60.0", limits));
    EXPECT_FALSE(IsInLimits("60/1", limits));
    EXPECT_FALSE(IsInLimits("0000000060", limits)) << "ten digits";
}

} // namespace
} // namespace brixen::pvn::pvn_workflow
