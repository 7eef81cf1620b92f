#include "toolkit/numbers/apex.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace brixen::zeve {
namespace {

struct ApexCase {
    const char* fraction;
    const char* shown;
    bool isBeyondScale = false;
};

void ExpectAll(NumberForm form, std::initializer_list<ApexCase> cases) {
    for (const ApexCase& each : cases) {
        bool isBeyondScale = false;
        EXPECT_EQ(ApexFormat(each.fraction, form, isBeyondScale), each.shown) << each.fraction;
        EXPECT_EQ(isBeyondScale, each.isBeyondScale) << each.fraction;
    }
}

TEST(ApexFormat, ShowsBrightnessWithTwoDecimals) {
    ExpectAll(NumberForm::kApexBrightness,
              {{"5/2", "2.50"}, {"-1/3", "-0.33"}, {"7/0", "7.00"}, {"x", "0.00"}});
}

TEST(ApexFormat, ShowsAnApertureAsAnFNumber) {
    ExpectAll(NumberForm::kApexAperture, {
                                             {"0/1", "1.0"},
                                             {"1/1", "1.4"},
                                             {"4/1", "4.0"},
                                             {"599/100", "8.0"},
                                             {"6/1", "8"},
                                             {"7/1", "11"},
                                             {"8/1", "16"},
                                             {"9/1", "23"},
                                             {"20/1", "1024"},
                                             {"2001/100", ">f/1024", true},
                                             {"-1/100", ">f/1024", true},
                                         });
}

TEST(ApexFormat, ShowsAShutterSpeedAsATime) {
    ExpectAll(NumberForm::kApexShutterSpeed, {
                                                 {"6/1", "1/60"},
                                                 {"0/1", "1.0"},
                                                 {"1/1", "0.5"},
                                                 {"-1/1", "2.0"},
                                                 {"2/1", "1/4"},
                                                 {"-10/1", "1024.0"},
                                                 {"-1001/100", ">1024 sec", true},
                                                 {"-11/1", ">1024 sec", true},
                                                 {"10/1", "1/1000"},
                                             });
}

TEST(ApexFormat, ShowsTheShortestTimeForTimesBeyondAnyNumber) {
    ExpectAll(NumberForm::kApexShutterSpeed, {{"1000/1", "1/2147483647"}, {"1e308/1", "1/2147483647"}});
}

TEST(ApexFormat, NeverClearsTheMarkOfTheScale) {
    bool isBeyondScale = true;
    EXPECT_EQ(ApexFormat("4/1", NumberForm::kApexAperture, isBeyondScale), "4.0");
    EXPECT_TRUE(isBeyondScale);
}

TEST(ApexFormat, IsEmptyForAFormOfTexts) {
    bool isBeyondScale = false;
    EXPECT_EQ(ApexFormat("4/1", NumberForm::kFraction, isBeyondScale), "");
    EXPECT_FALSE(isBeyondScale);
}

TEST(SnapShutterTime, IsZeroForNoTime) {
    EXPECT_EQ(SnapShutterTime(0), 0);
    EXPECT_EQ(SnapShutterTime(-1), 0);
}

TEST(SnapShutterTime, HasSeventyTimes) {
    std::vector<double> times = {30, 25,  20,  15,  13, 10,  8,   6,   5,   4,   3.2, 3,    2.5,
                                 2,  1.6, 1.5, 1.3, 1,  0.8, 0.7, 0.6, 0.5, 0.4, 0.3, 0.25, 0.2};
    for (const double part :
         {6,    8,    10,   13,   15,   20,   25,   30,   40,   45,   50,    60,    80,    90,   100,
          125,  160,  180,  200,  250,  320,  350,  400,  500,  640,  750,   800,   1000,  1250, 1500,
          1600, 2000, 2500, 3000, 3200, 4000, 5000, 6000, 6400, 8000, 10000, 12000, 12800, 16000}) {
        times.push_back(1 / part);
    }
    EXPECT_EQ(times.size(), 70u);
    for (const double time : times) {
        EXPECT_EQ(SnapShutterTime(time), time);
        EXPECT_EQ(SnapShutterTime(time * 1.015), time);
        EXPECT_EQ(SnapShutterTime(time * 0.985), time);
    }
}

TEST(SnapShutterTime, TakesTheFirstTimeOfTheSeriesWithinTwoPercent) {
    EXPECT_EQ(SnapShutterTime(30), 30);
    EXPECT_EQ(SnapShutterTime(30.5), 30);
    EXPECT_EQ(SnapShutterTime(29.5), 30);
    EXPECT_EQ(SnapShutterTime(1.0 / 16000), 1.0 / 16000);
    EXPECT_EQ(SnapShutterTime(1.0 / 6), 1.0 / 6);
    EXPECT_EQ(SnapShutterTime(0.98 * 3.2), 3.2) << "the borders count";
    EXPECT_EQ(SnapShutterTime(1.02 * 3.2), 3.2);
    EXPECT_DOUBLE_EQ(SnapShutterTime(0.975 * 3.2), 3.1);
    EXPECT_DOUBLE_EQ(SnapShutterTime(1.025 * 3.2), 3.3);
}

TEST(SnapShutterTime, TriesALittleLongerTimesBelowATenth) {
    EXPECT_EQ(SnapShutterTime(1.0 / 64), 1.0 / 60) << "1/64 times 16/15";
    EXPECT_EQ(SnapShutterTime(1.0 / 16), 1.0 / 15);
    EXPECT_EQ(SnapShutterTime(1.0 / 1024), 1.0 / 1000) << "1/1024 times 1.024";
    EXPECT_DOUBLE_EQ(SnapShutterTime(0.95 / 1000), 0.1 / 105) << "still too short";
    EXPECT_DOUBLE_EQ(SnapShutterTime(0.92), 0.9) << "not below a tenth";
}

// Each value has another result on the other side of its border.
TEST(SnapShutterTime, TriesALongerTimeByTheSizeOfTheTime) {
    EXPECT_EQ(SnapShutterTime(0.094), 0.1) << "below 0.1: times 16/15";
    EXPECT_DOUBLE_EQ(SnapShutterTime(0.117), 1.0 / 9);
    EXPECT_EQ(SnapShutterTime(0.0104), 1.0 / 90) << "not below 0.01: times 16/15";
    EXPECT_DOUBLE_EQ(SnapShutterTime(0.0094), 0.2 / 21);
}

TEST(SnapShutterTime, ChangesItsRoundingAtEachBorder) {
    EXPECT_EQ(SnapShutterTime(10.4), 10) << "10";
    EXPECT_DOUBLE_EQ(SnapShutterTime(9.26), 9.3);
    EXPECT_DOUBLE_EQ(SnapShutterTime(0.55), 0.6) << "0.5";
    EXPECT_DOUBLE_EQ(SnapShutterTime(0.35), 1.0 / 3);
    EXPECT_DOUBLE_EQ(SnapShutterTime(0.0516), 1.0 / 19) << "0.05";
    EXPECT_DOUBLE_EQ(SnapShutterTime(0.0485), 0.2 / 4);
    EXPECT_DOUBLE_EQ(SnapShutterTime(0.00855), 0.2 / 23) << "0.00769";
    EXPECT_DOUBLE_EQ(SnapShutterTime(0.00751), 0.1 / 13);
    EXPECT_DOUBLE_EQ(SnapShutterTime(0.001364), 0.1 / 73) << "0.00133";
    EXPECT_DOUBLE_EQ(SnapShutterTime(0.001276), 0.02 / 16);
    EXPECT_DOUBLE_EQ(SnapShutterTime(0.000855), 0.02 / 23) << "0.000769";
    EXPECT_DOUBLE_EQ(SnapShutterTime(0.000751), 0.01 / 13);
    EXPECT_DOUBLE_EQ(SnapShutterTime(6.7e-5), 0.01 / 149) << "0.0000667";
    EXPECT_DOUBLE_EQ(SnapShutterTime(6.64e-5), 0.001 / 15);
}

TEST(SnapShutterTime, RoundsOtherTimesByTheirSize) {
    EXPECT_EQ(SnapShutterTime(100.4), 100);
    EXPECT_EQ(SnapShutterTime(17.5), 18);
    EXPECT_DOUBLE_EQ(SnapShutterTime(7), 7);
    EXPECT_DOUBLE_EQ(SnapShutterTime(0.9), 0.9);
    EXPECT_DOUBLE_EQ(SnapShutterTime(0.142857), 1.0 / 7);
    EXPECT_DOUBLE_EQ(SnapShutterTime(1.0 / 70), 0.2 / 14);
    EXPECT_DOUBLE_EQ(SnapShutterTime(1.0 / 74.8), 1.0 / 75);
    EXPECT_DOUBLE_EQ(SnapShutterTime(1.0 / 7130), 1.0 / 7100);
    EXPECT_DOUBLE_EQ(SnapShutterTime(1.0 / 285), 0.1 / 29) << "the time is 28.5 parts of a tenth";
    EXPECT_DOUBLE_EQ(SnapShutterTime(1.0 / 1150), 0.02 / 23);
    EXPECT_DOUBLE_EQ(SnapShutterTime(1.0 / 7000), 0.01 / 70);
    EXPECT_DOUBLE_EQ(SnapShutterTime(1.0 / 30000), 0.001 / 30);
}

} // namespace
} // namespace brixen::zeve
