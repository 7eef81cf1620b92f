#include "toolkit/numbers/number_text.h"

#include <string>

#include <gtest/gtest.h>

namespace brixen::zeve {
namespace {

using enum NumberForm;

struct ConversionCase {
    const char* text;
    NumberConversion conversion;
    const char* result;
};

// Converts for a field that shows no photographic value. "nothing" is for no text at all.
std::string Converted(std::string_view text, const NumberConversion& conversion) {
    bool isBeyondScale = false;
    const auto result = ConvertNumberText(text, conversion, isBeyondScale);
    EXPECT_FALSE(isBeyondScale);
    return result.value_or("nothing");
}

void ExpectAll(std::initializer_list<ConversionCase> cases) {
    for (const ConversionCase& each : cases)
        EXPECT_EQ(Converted(each.text, each.conversion), each.result) << each.text;
}

TEST(ConvertNumberText, LeavesATextOfTheSameForm) {
    ExpectAll({
        {"12", {kWhole, kWhole}, "12"},
        {"abc", {kWhole, kWhole}, "abc"},
        {"3/4", {kFraction, kFraction}, "3/4"},
        {"16:9", {kRatio, kRatio}, "16:9"},
        {"1.50", {kDecimal, kDecimal, 2, 2}, "1.50"},
    });
}

TEST(ConvertNumberText, RoundsADecimalToOtherDecimals) {
    ExpectAll({
        {"1.25", {kDecimal, kDecimal, 2, 1}, "1.3"},
        {"1.5", {kDecimal, kDecimal, 1, 3}, "1.500"},
        {"-1.25", {kDecimal, kDecimal, 2, 1}, "-1.3"},
        {"1.5", {kDecimal, kDecimal, 1, 0}, "2"},
    });
}

TEST(ConvertNumberText, WritesNothingFromAFormToItselfThatIsOnlyShown) {
    for (const NumberForm form : {kApexAperture, kApexShutterSpeed, kApexBrightness, kUnknown}) {
        EXPECT_EQ(Converted("1", {form, form}), "nothing");
    }
}

TEST(ConvertNumberText, RoundsHalvesAwayFromZero) {
    ExpectAll({
        {"2.5", {kDecimal, kWhole, 1}, "3"},
        {"5/2", {kFraction, kWhole}, "3"},
        {"1/8", {kFraction, kDecimal, 0, 2}, "0.13"},
    });
}

TEST(ConvertNumberText, ConvertsAWholeNumber) {
    ExpectAll({
        {"1", {kWhole, kDecimal, 0, 2}, "1.00"},
        {"abc", {kWhole, kDecimal, 0, 1}, "0.0"},
        {"7", {kWhole, kFraction}, "7/1"},
        {"7", {kWhole, kRatio}, "7:1"},
        {"7", {kWhole, kUnknown}, "7"},
    });
}

TEST(ConvertNumberText, ConvertsADecimalNumber) {
    ExpectAll({
        {"1.5", {kDecimal, kWhole, 1}, "2"},
        {"1.4", {kDecimal, kWhole, 1}, "1"},
        {"-1.5", {kDecimal, kWhole, 1}, "-2"},
        {"12.34", {kDecimal, kFraction, 2}, "1234/100"},
        {"1.7", {kDecimal, kFraction, 1}, "17/10"},
        {"12.", {kDecimal, kFraction}, "12/1"},
        {".5", {kDecimal, kFraction, 1}, "5/10"},
        {"1.5:2", {kDecimal, kFraction, 1}, "1.52/10"},
        {"0.1234567890123", {kDecimal, kFraction, 13}, "01234567890123/10000000000000"},
        {"1.5", {kDecimal, kRatio, 1}, "1.5:1"},
        {"1.5", {kDecimal, kApexAperture, 1}, "1.5"},
    });
}

TEST(ConvertNumberText, ConvertsAFraction) {
    ExpectAll({
        {"3/2", {kFraction, kWhole}, "2"},
        {"3/2", {kFraction, kDecimal, 0, 1}, "1.5"},
        {"1/3", {kFraction, kDecimal, 0, 4}, "0.3333"},
        {"3/0", {kFraction, kDecimal, 0, 1}, "3.0"},
        {"3/4", {kFraction, kRatio}, "3/4:1"},
        {"3/4", {kFraction, kUnknown}, "3/4"},
    });
}

TEST(ConvertNumberText, ConvertsARatio) {
    ExpectAll({
        {"16:9", {kRatio, kWhole}, "16"},
        {"x:9", {kRatio, kWhole}, "x"},
        {"16:9", {kRatio, kDecimal, 0, 1}, "16.0"},
        {"16:9", {kRatio, kFraction}, "16/9"},
        {"1:2:3", {kRatio, kFraction}, "1/2:3"},
        {"16:9", {kRatio, kUnknown}, "16:9"},
    });
}

TEST(ConvertNumberText, LeavesATextThatIsOfNoForm) {
    ExpectAll({
        {"1/60", {kApexShutterSpeed, kWhole}, "1/60"},
        {"x", {kUnknown, kDecimal, 0, 2}, "x"},
    });
}

TEST(ConvertNumberText, ShowsEveryFormInAnApexField) {
    const ConversionCase kCases[] = {
        {"4", {kWhole, kApexAperture, 0, 0, true}, "4.0"},
        {"5.0", {kDecimal, kApexAperture, 1, 0, true}, "5.7"},
        {"4/1", {kFraction, kApexAperture, 0, 0, true}, "4.0"},
        {"8:1", {kRatio, kApexAperture, 0, 0, true}, "16"},
        {"6/1", {kFraction, kApexShutterSpeed, 0, 0, true}, "1/60"},
        {"2.5", {kDecimal, kApexBrightness, 1, 0, true}, "2.50"},
    };
    for (const ConversionCase& each : kCases) EXPECT_EQ(Converted(each.text, each.conversion), each.result);
    bool isBeyondScale = false;
    EXPECT_EQ(ConvertNumberText("-11", {kWhole, kApexShutterSpeed, 0, 0, true}, isBeyondScale), ">1024 sec");
    EXPECT_TRUE(isBeyondScale);
}

TEST(ConvertNumberText, EndsAt254Bytes) {
    const std::string digits(100'000, '7');
    EXPECT_EQ(Converted(std::string(254, '7'), {kWhole, kWhole}).size(), 254u);
    for (const NumberForm to : {kWhole, kDecimal, kFraction, kRatio}) {
        EXPECT_EQ(Converted(digits, {kWhole, to, 0, 3}).size(), 254u);
        EXPECT_EQ(Converted("1." + digits, {kDecimal, to, 100'000, 300}).size(), to == kWhole ? 1u : 254u);
    }
    EXPECT_EQ(Converted("1e308", {kWhole, kDecimal, 0, 1}).size(), 254u);
    EXPECT_EQ(Converted(std::string(253, '7') + "\u00E9", {kWhole, kWhole}), std::string(253, '7'))
        << "no character is cut";
}

TEST(ConvertNumberText, TakesAnyBytes) {
    for (const std::string_view text : {"", "-", "/", "::", ".", "/:.", "\xFF", "1e308/0", "e", "%s%n"}) {
        for (const NumberForm from : {kWhole, kDecimal, kFraction, kRatio, kUnknown}) {
            for (const NumberForm to :
                 {kWhole, kDecimal, kFraction, kRatio, kApexAperture, kApexShutterSpeed}) {
                bool isBeyondScale = false;
                const auto result = ConvertNumberText(text, {from, to, 1, 2, IsApex(to)}, isBeyondScale);
                ASSERT_TRUE(result.has_value());
                EXPECT_LE(result->size(), kLongestNumberText);
            }
        }
    }
}

} // namespace
} // namespace brixen::zeve
