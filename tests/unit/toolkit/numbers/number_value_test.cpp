#include "toolkit/numbers/number_value.h"

#include <clocale>
#include <cmath>
#include <limits>
#include <string>

#include <gtest/gtest.h>

namespace brixen::zeve {
namespace {

constexpr double kLargest = std::numeric_limits<double>::max();

struct ReadCase {
    const char* text;
    double value;
};

TEST(NumberValue, IsReadFromTheBeginningOfAText) {
    constexpr ReadCase kCases[] = {
        {"", 0},      {"0", 0},    {"12", 12},     {"-12", -12},   {"+12", 12},   {" \t\n12 ", 12},
        {"1.5", 1.5}, {".5", 0.5}, {"5.", 5},      {"-.5", -0.5},  {"1e3", 1000}, {"1E-3", 0.001},
        {"1e", 1},    {"1e+", 1},  {"2e+2x", 200}, {"1.5.5", 1.5}, {"1,5,5", 1},  {"12:30", 12},
        {"3/4", 3},   {"abc", 0},  {"-", 0},       {"--1", 0},     {"+-1", 0},    {"- 1", 0},
        {".", 0},     {"..", 0},   {"/", 0},       {"::", 0},      {"e5", 0},     {"\xFF\xFE", 0},
    };
    for (const ReadCase& each : kCases) EXPECT_EQ(ParseNumber(each.text), each.value) << each.text;
}

TEST(NumberValue, HasNoNamesAndNoHexadecimalDigits) {
    for (const char* const text : {"inf", "-inf", "infinity", "nan", "NAN(1)", "0x10", "-0x1p3", "x1"}) {
        EXPECT_EQ(ParseNumber(text), 0) << text;
    }
}

TEST(NumberValue, BeyondTheRangeOfDoubleIsTheLargestOrZero) {
    EXPECT_EQ(ParseNumber("1e308"), 1e308);
    EXPECT_EQ(ParseNumber("1e309"), kLargest);
    EXPECT_EQ(ParseNumber("-1e309"), -kLargest);
    EXPECT_EQ(ParseNumber("1e-400"), 0);
    EXPECT_EQ(ParseNumber("1E-400"), 0);
    EXPECT_EQ(ParseNumber("1e99999999999999999999"), kLargest);
    EXPECT_EQ(ParseNumber("1e-99999999999999999999"), 0);
    EXPECT_EQ(ParseNumber(std::string(100'000, '9')), kLargest);
    EXPECT_EQ(ParseNumber("." + std::string(100'000, '0') + "1"), 0);
    EXPECT_EQ(ParseNumber("1" + std::string(400, '0') + "e-400"), 1);
    EXPECT_EQ(ParseNumber("1" + std::string(400, '0') + "e-10"), kLargest);
    EXPECT_EQ(ParseNumber("0." + std::string(400, '0') + "1e+10"), 0);
    EXPECT_EQ(ParseNumber("0." + std::string(400, '0') + "1e+800"), kLargest);
    EXPECT_EQ(ParseNumber(std::string(500, '0')), 0);
    EXPECT_EQ(ParseNumber("1" + std::string(400, '0') + "e+-500"), kLargest) << "two signs are no exponent";
    EXPECT_EQ(ParseNumber("1" + std::string(400, '0') + "e--500"), kLargest);
}

TEST(NumberValue, OfAFractionDividesItsParts) {
    constexpr ReadCase kCases[] = {
        {"3/4", 0.75},
        {"-3/4", -0.75},
        {"3/0", 3},
        {"3/", 3},
        {"3/x", 3},
        {"/4", 0},
        {"5", 5},
        {"1/2/4", 0.5},
        {"1.5/0.5", 3},
        {"1e308/1e-308", kLargest},
        {"-1e308/1e-308", -kLargest},
    };
    for (const ReadCase& each : kCases) EXPECT_EQ(FractionValue(each.text), each.value) << each.text;
}

TEST(NumberValue, IsRoundedWithHalvesAwayFromZero) {
    EXPECT_EQ(RoundToDigits(0, 1.5), 2);
    EXPECT_EQ(RoundToDigits(0, 2.5), 3);
    EXPECT_EQ(RoundToDigits(0, 2.4), 2);
    EXPECT_EQ(RoundToDigits(0, -1.5), -2);
    EXPECT_EQ(RoundToDigits(0, -1.4), -1);
    EXPECT_EQ(RoundToDigits(-3, 1234.5), 1235) << "as to a whole number";
    EXPECT_EQ(RoundToDigits(1, 0.25), 0.3);
    EXPECT_EQ(RoundToDigits(1, -0.25), -0.3);
    EXPECT_EQ(RoundToDigits(2, 1.25), 1.25);
    EXPECT_EQ(RoundToDigits(3, 0), 0);
}

TEST(NumberValue, TooLargeToHaveDecimalsStaysWhenItIsRounded) {
    EXPECT_EQ(RoundToDigits(1, 1e308), 1e308);
    EXPECT_EQ(RoundToDigits(400, 1.5), 1.5);
    EXPECT_EQ(RoundToDigits(400, 0), 0);
    EXPECT_EQ(RoundToDigits(INT32_MAX, -2), -2);
}

TEST(NumberValue, IsWrittenWithItsDecimals) {
    EXPECT_EQ(DecimalText(1, 2), "1.00");
    EXPECT_EQ(DecimalText(0.125, 2), "0.12") << "a half goes to the even digit";
    EXPECT_EQ(DecimalText(-1.5, 1), "-1.5");
    EXPECT_EQ(DecimalText(2.0, 0), "2");
    EXPECT_EQ(DecimalText(2.0, -5), "2");
    EXPECT_EQ(DecimalText(-0.0, 0), "-0");
    EXPECT_EQ(DecimalText(1e308, 1).size(), 311u);
    EXPECT_EQ(DecimalText(0.5, INT32_MAX).substr(0, 4), "0.50");
    EXPECT_EQ(DecimalText(-kLargest, INT32_MAX).size(), 1u + 309 + 1 + 1074);
}

TEST(NumberValue, DoesNotDependOnTheLocale) {
    const std::string before = std::setlocale(LC_NUMERIC, nullptr);
    for (const char* const locale : {"de_DE.UTF-8", "C"}) {
        if (!std::setlocale(LC_NUMERIC, locale)) continue;
        EXPECT_EQ(ParseNumber("1.5"), 1.5) << locale;
        EXPECT_EQ(DecimalText(1.5, 1), "1.5") << locale;
    }
    std::setlocale(LC_NUMERIC, before.c_str());
}

} // namespace
} // namespace brixen::zeve
