// What number fields show for their values, and the values that they return for typed texts.
#include "toolkit/numbers/number_field.h"

#include "toolkit/numbers/number_text.h"

#include <algorithm>
#include <cstdint>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

namespace brixen::zeve {
namespace {

NumberField Field(std::string_view format, std::int32_t precision = 1, std::string_view addIn = {}) {
    return NumberField({.format = format, .precision = precision, .addIn = addIn});
}

NumberField Limited(std::string_view minimum, std::string_view maximum, std::string_view format = "decimal") {
    return NumberField({.minimum = minimum, .maximum = maximum, .format = format});
}

std::string Read(NumberField& field, std::string_view text, std::string_view decimalSign = ".") {
    const NumberField::Reading reading = field.Read(text, decimalSign);
    EXPECT_FALSE(reading.outOfRange.has_value()) << text;
    EXPECT_EQ(reading.closest, "");
    return reading.value;
}

TEST(NumberField, ShowsTheDecimalsOfItsPrecision) {
    NumberField field = Field("decimal", 2);
    EXPECT_EQ(field.SetValue("1"), "1.00");
    EXPECT_EQ(Read(field, "1.00"), "1") << "unchanged";
}

TEST(NumberField, RoundsForAWholeNumberAndKeepsTheValue) {
    NumberField field = Field("whole");
    EXPECT_EQ(field.SetValue("1.5"), "2");
    EXPECT_EQ(Read(field, "2"), "1.5") << "unchanged";
    EXPECT_EQ(Read(field, "3"), "3.0");
}

TEST(NumberField, ReturnsANumberInTheFormOfItsValue) {
    NumberField field = Field("decimal", 1);
    EXPECT_EQ(field.SetValue("3/2"), "1.5");
    EXPECT_EQ(Read(field, "1.7"), "17/10");
    EXPECT_EQ(Read(field, "1.5"), "3/2");
    EXPECT_EQ(field.SetValue("16:9"), "16.0");
    EXPECT_EQ(Read(field, "4.5"), "4.5:1");
}

TEST(NumberField, TakesTheFormOfWhatWasTypedBeforeAnyValue) {
    NumberField field = Field("decimal", 1);
    EXPECT_EQ(Read(field, "3/2"), "3/2");
    EXPECT_EQ(Read(field, "1.25"), "1.25");
    EXPECT_EQ(Read(field, "7"), "7");
}

TEST(NumberField, IsWholeWithoutDecimalsIfTheViewNamesNoFormat) {
    NumberField field = Field("", 3);
    EXPECT_EQ(field.SetValue("2.6"), "3");
    field.SetValue("");
    EXPECT_EQ(Read(field, "4"), "4");
}

TEST(NumberField, IgnoresThePrecisionIfTheViewNamesNoFormat) {
    NumberField field = Field("", 3);
    field.SetValue("");
    EXPECT_EQ(Read(field, "2.5"), "2.5");
}

TEST(NumberField, TakesANegativePrecisionAsOne) {
    NumberField field = Field("decimal", -2);
    EXPECT_EQ(field.SetValue("2"), "2.0");
    EXPECT_EQ(Field("decimal", 0).SetValue("1.5"), "2") << "0 is a precision";
}

TEST(NumberField, IsEmptyForAnEmptyValueAndTakesItsOwnFormat) {
    NumberField field = Field("decimal", 2);
    field.SetValue("3/2");
    EXPECT_EQ(field.SetValue(""), "");
    EXPECT_EQ(Read(field, "7"), "7");
    EXPECT_EQ(Read(field, " "), "");
}

TEST(NumberField, AnEmptyValueSetsThePrecisionOfTheField) {
    NumberField field = Field("decimal", 3);
    field.SetValue("1.5");
    EXPECT_EQ(Read(field, "2.25"), "2.25") << "the value had one decimal, the text two";
    field.SetValue("");
    EXPECT_EQ(Read(field, "2.25"), "2.250");
}

TEST(NumberField, AnEmptyValueKeepsTheNumberThatWasShown) {
    NumberField field = Field("whole");
    field.SetValue("5");
    field.SetValue("");
    EXPECT_EQ(Read(field, "6"), "6");
    EXPECT_EQ(Read(field, "5"), "") << "counts as unchanged, and the value is empty";
}

TEST(NumberField, KeepsTheDecimalsOfAnEarlierValueForAWholeOne) {
    NumberField field = Field("whole");
    field.SetValue("1.2345");
    field.SetValue("5");
    EXPECT_EQ(Read(field, "5.25"), "5.2500");
}

TEST(NumberField, ReturnsAsManyDecimalsAsWereEverTyped) {
    NumberField field = Field("decimal", 1);
    field.SetValue("1.5");
    EXPECT_EQ(Read(field, "1.125"), "1.125");
    EXPECT_EQ(Read(field, "2.5"), "2.500") << "the decimals that were typed once stay";
}

TEST(NumberField, TurnsAWholeValueIntoADecimalOneWhenDecimalsAreTyped) {
    NumberField field = Field("whole");
    field.SetValue("5");
    EXPECT_EQ(Read(field, "5.25"), "5.25");
}

TEST(NumberField, PutsTheAddInAroundTheNumber) {
    NumberField field = Field("decimal", 1, "about ^0 mm");
    EXPECT_EQ(field.SetValue("3"), "about 3.0 mm");
    EXPECT_EQ(Read(field, "about 3.0 mm"), "3");
    EXPECT_EQ(Read(field, "about 4.5 mm"), "4.5");
    EXPECT_EQ(Read(field, "4.5"), "4.5") << "the user may leave it out";
    EXPECT_EQ(Read(field, "x about 4.5 mm and more"), "4.5");
    EXPECT_EQ(Read(field, "about 4.5 mm 6 mm"), "4.5") << "the first suffix ends the number";
    EXPECT_EQ(Read(field, "about 4.5 about 5 mm"), "4.5about5") << "the first prefix counts";
}

TEST(NumberField, LooksForTheSuffixAfterThePrefix) {
    NumberField field = Field("whole", 0, "a mm^0 mm");
    field.SetValue("3");
    EXPECT_EQ(Read(field, "a mm4 mm"), "4");
    NumberField left = Field("whole", 0, "no ^");
    left.SetValue("3");
    EXPECT_EQ(Read(left, "no 4 mm"), "4mm") << "there is no suffix";
    NumberField right = Field("whole", 0, "^0 mm");
    right.SetValue("3");
    EXPECT_EQ(Read(right, "4 mm"), "4") << "there is no prefix";
}

TEST(NumberField, KnowsAnUnchangedTextWhateverTheAddInIs) {
    NumberField field = Field("whole", 0, "^#0");
    EXPECT_EQ(field.SetValue("101"), "1010");
    EXPECT_EQ(Read(field, "1010"), "101") << "a suffix that stands in the number";
    field.SetValue("");
    EXPECT_EQ(Read(field, "1010"), "1") << "an empty value showed nothing";
    NumberField time = Field("apex_shutterspeed");
    EXPECT_EQ(time.SetValue("6/1"), "1/60");
    EXPECT_EQ(Read(time, "1/60", "/"), "6/1") << "a decimal sign that stands in the number";
}

TEST(NumberField, ReadsATextThatDiffersFromTheShownOneInItsBlanks) {
    NumberField field = Field("whole", 0, "^0 5");
    EXPECT_EQ(field.SetValue("1"), "1 5");
    EXPECT_EQ(Read(field, "1 5"), "1") << "unchanged";
    EXPECT_EQ(Read(field, "15"), "15") << "a number without the suffix";
}

TEST(NumberField, SkipsTheCharacterAfterTheCaretOfTheAddIn) {
    EXPECT_EQ(Field("whole", 0, "^\u00E9%").SetValue("3"), "3%");
    EXPECT_EQ(Field("whole", 0, "^^^").SetValue("3"), "3^");
    EXPECT_EQ(Field("whole", 0, "^").SetValue("3"), "3");
    EXPECT_EQ(Field("whole", 0, "^\x80\x80").SetValue("3"), "3");
    EXPECT_EQ(Field("whole", 0, "^9%").SetValue("3"), "3%");
    EXPECT_EQ(Field("whole", 0, "a^").SetValue("3"), "a3") << "nothing follows the caret";
    EXPECT_EQ(Field("whole", 0, "a^0b^1c").SetValue("3"), "a3b^1c");
    EXPECT_EQ(Field("whole", 0, "no place").SetValue("3"), "3");
}

TEST(NumberField, TakesTheUsersDecimalSign) {
    NumberField field = Field("decimal", 1);
    field.SetValue("1");
    EXPECT_EQ(Read(field, "1,5", ","), "1.5");
    EXPECT_EQ(Read(field, "1.5", ","), "1.5");
    EXPECT_EQ(Read(field, "1\u066B5", "\u066B"), "1.5");
    EXPECT_EQ(Read(field, "15", ""), "15.0") << "a system without a sign";
    EXPECT_EQ(Read(field, "2,5", ",-"), "2.5") << "only the first character counts";
    EXPECT_EQ(Read(field, "2\u066B5", "\u066B-"), "2.5");
    EXPECT_EQ(Read(field, "2,5,5", ","), "2.5,5") << "a second sign stays";
    field.SetValue("1.0000");
    EXPECT_EQ(Read(field, "2,5,5", ","), "2.5000") << "and ends the number";
}

TEST(NumberField, TakesTheUsersDecimalSignAfterAPrefixWithThatSign) {
    NumberField field = Field("decimal", 1, "x, ^0");
    EXPECT_EQ(field.SetValue("1"), "x, 1.0");
    EXPECT_EQ(Read(field, "x, 1,5", ","), "1.5");
}

TEST(NumberField, IgnoresBlanks) {
    NumberField field = Field("whole");
    field.SetValue("5");
    EXPECT_EQ(Read(field, " 1 0 "), "10");
    EXPECT_EQ(Read(field, " 5 "), "5");
}

TEST(NumberField, ReadsWhatIsNoNumberAsZero) {
    NumberField field = Field("decimal", 1);
    field.SetValue("1/2");
    EXPECT_EQ(Read(field, "abc"), "abc/1");
    field.SetValue("1.5");
    EXPECT_EQ(Read(field, "abc"), "0.0");
}

TEST(NumberField, ShowsPhotographicValues) {
    NumberField time = Field("apex_shutterspeed");
    EXPECT_EQ(time.SetValue("6/1"), "1/60");
    EXPECT_EQ(Read(time, "1/60"), "6/1");
    NumberField aperture = Field("apex_aperture");
    EXPECT_EQ(aperture.SetValue("4/1"), "4.0");
    EXPECT_EQ(aperture.SetValue("8/1"), "16");
    NumberField brightness = Field("apex_brightness");
    EXPECT_EQ(brightness.SetValue("5/2"), "2.50");
}

TEST(NumberField, ReturnsATextTypedIntoAPhotographicFieldAsAFraction) {
    NumberField field = Field("apex_aperture");
    field.SetValue("4/1");
    EXPECT_EQ(Read(field, "5.6"), "56/10");
    EXPECT_EQ(Read(field, "8"), "8/1");
}

TEST(NumberField, TellsTheShownNumberFromTheValue) {
    NumberField field = Field("apex_aperture", 1, "f/^0");
    EXPECT_EQ(field.SetValue("3"), "f/2.8");
    EXPECT_EQ(field.ReadShown("f/2.8", ".").number, "2.8");
    EXPECT_FALSE(field.ReadShown("f/2.8", ".").isEdited);
    EXPECT_FALSE(field.ReadShown(" 2,8 ", ",").isEdited) << "only written in another way";
    EXPECT_EQ(field.ReadShown("f/ 5,6", ",").number, "5.6");
    EXPECT_TRUE(field.ReadShown("f/ 5,6", ",").isEdited);
    EXPECT_EQ(field.ReadShown("wide", ".").number, "wide");
    EXPECT_EQ(Read(field, "f/2.8"), "3");
}

TEST(NumberField, ShowsANumberWhoseAddInIsTypedLoosely) {
    NumberField length = Field("fraction", 1, "^0 mm");
    length.SetValue("50/1");
    for (const char* typed : {"35", "35mm", "35 mm", "35 MM", "35  mm "})
        EXPECT_EQ(length.ReadShown(typed, ".").number, "35") << typed;
    for (const char* typed : {"35m", "3 5mm", "35cm", "mm35", "35mmmm"})
        EXPECT_NE(length.ReadShown(typed, ".").number, "35") << typed;
    NumberField aperture = Field("apex_aperture", 1, "f/^0");
    aperture.SetValue("3");
    for (const char* typed : {"8", "f/8", "F/8", "f / 8", " F/ 8"})
        EXPECT_EQ(aperture.ReadShown(typed, ".").number, "8") << typed;
    EXPECT_EQ(aperture.ReadShown("F/", ".").number, "");
    NumberField about = Field("whole", 0, "About ^0%");
    about.SetValue("5");
    EXPECT_EQ(about.ReadShown("about7%", ".").number, "7");
    EXPECT_EQ(about.ReadShown("%", ".").number, "");
    EXPECT_EQ(about.ReadShown("ABOUT", ".").number, "");
}

TEST(NumberField, ReadsNoAddInThatIsTypedLoosely) {
    NumberField length = Field("fraction", 1, "^0 mm");
    length.SetValue("50/1");
    EXPECT_EQ(Read(length, "35mm"), "35mm/1");
}

TEST(NumberField, KnowsAPointThatMayBelongToGroups) {
    NumberField field = Field("decimal", 1, "^0 ppi");
    field.SetValue("300");
    const auto mayBeGrouped = [&field](const char* typed, const char* sign) {
        return field.ReadShown(typed, sign).mayBeGrouped;
    };
    for (const char* typed :
         {"1.200", "12.000 ppi", "-123.456", "1.200.000", "1.200,5", "1.850:1", "1.200ppi"}) {
        EXPECT_TRUE(mayBeGrouped(typed, ",")) << typed;
        EXPECT_TRUE(mayBeGrouped(typed, "\u066B")) << typed;
        EXPECT_FALSE(mayBeGrouped(typed, ".")) << typed;
    }
    for (const char* typed :
         {"1,200", "1.2", "1.20", "1.2000", "0.125", "1234.567", ".125", "1200", "x.125", "1."})
        EXPECT_FALSE(mayBeGrouped(typed, ",")) << typed;
    EXPECT_EQ(Read(field, "1.200", ","), "1.200") << "the value is read as ever";
    NumberField exact = Field("decimal", 3);
    exact.SetValue("1.125");
    EXPECT_FALSE(exact.ReadShown("1.125", ",").mayBeGrouped) << "the field itself has written it";
}

TEST(NumberField, ShowsNoOtherNumberForATextWithMoreThanOne) {
    NumberField time = Field("decimal", 1, "^0 s");
    time.SetValue("2");
    const auto shown = [&time](const char* typed) { return time.ReadShown(typed, ".").number; };
    for (const char* typed :
         {"1 1/2", "3 2", "1 1/3 s", "1  22", "4 0000", "1 000 00", "1 s/60", "24 s - 70 s"})
        EXPECT_EQ(shown(typed), typed);
    EXPECT_EQ(shown("4 000"), "4000");
    EXPECT_EQ(shown("1 000 000 s "), "1000000");
    EXPECT_EQ(shown("1 / 60 s"), "1/60");
    EXPECT_EQ(shown(" 12 "), "12");
    EXPECT_EQ(shown("- 12 s"), "-12");
    EXPECT_EQ(Read(time, "3 2"), "32") << "the value is read as ever";
    NumberField aperture = Field("decimal", 1, "f/^0");
    aperture.SetValue("2");
    EXPECT_EQ(aperture.ReadShown("off/8", ".").number, "off/8");
    EXPECT_EQ(aperture.ReadShown(" f/8", ".").number, "8");
}

TEST(NumberField, ShowsTheEndOfAScaleWithoutTheAddInFromThenOn) {
    NumberField field = Field("apex_shutterspeed", 1, "^0 s");
    EXPECT_EQ(field.SetValue("6/1"), "1/60 s");
    EXPECT_EQ(field.SetValue("-11/1"), ">1024 sec");
    EXPECT_EQ(Read(field, ">1024 sec"), "-11/1") << "unchanged, though it holds a blank";
    EXPECT_EQ(field.SetValue("6/1"), "1/60") << "for the life of the field";
    NumberField withPrefix = Field("apex_shutterspeed", 1, "about ^0");
    EXPECT_EQ(withPrefix.SetValue("-11/1"), ">1024 sec");
    EXPECT_EQ(Read(withPrefix, "about >1024 sec"), "-11/1") << "with the add-in typed";
}

struct RangeCase {
    const char* minimum;
    const char* maximum;
    const char* typed;
    const char* message;
    const char* closest;
};

TEST(NumberField, ReplacesANumberBeyondALimitByTheClosestOne) {
    constexpr RangeCase kCases[] = {
        {"1/2", "10", "1/4", "A number between 1/2 and 10 is required.  Closest value inserted.", "0.500000"},
        {"1/2", "10", "11", "A number between 1/2 and 10 is required.  Closest value inserted.", "10.000000"},
        {"-1", "", "-2", "A number more than -1 is required.  Closest value inserted.", "-1.000000"},
        {"", "65535", "70000", "A number less than 65535 is required.  Closest value inserted.",
         "65535.000000"},
        {"5", "1", "3", "A number between 5 and 1 is required.  Closest value inserted.", "5.000000"},
        {"", "7", "7.5/1", "A number less than 7 is required.  Closest value inserted.", "7.000000"},
        {"1/2", "3/4", "4/4", "A number between 1/2 and 3/4 is required.  Closest value inserted.",
         "0.750000"},
        {"1", "^0%s", "0", "A number between 1 and ^0%s is required.  Closest value inserted.", "1.000000"},
    };
    for (const RangeCase& each : kCases) {
        NumberField field = Limited(each.minimum, each.maximum);
        const NumberField::Reading reading = field.Read(each.typed, ".");
        ASSERT_TRUE(reading.outOfRange.has_value()) << each.typed;
        const std::string keyText = reading.outOfRange->messageKeyText;
        const std::string message = keyText.substr(keyText.find('=') + 1);
        EXPECT_EQ(RangeMessage(message, *reading.outOfRange), each.message);
        EXPECT_EQ(reading.closest, each.closest);
    }
}

TEST(NumberField, ReturnsTheClosestValueInTheFormOfTheValue) {
    NumberField typed = Limited("", "65535", "whole");
    EXPECT_EQ(typed.Read("70000", ".").value, "65535") << "no value was set";
    EXPECT_EQ(typed.Read("70000.5", ".").value, "65535.0") << "with the decimals that were typed";
    NumberField ratio = Limited("2", "");
    ratio.SetValue("16:9");
    EXPECT_EQ(ratio.Read("1", ".").value, "2.000000:1");
    NumberField precise = Limited("2", "");
    precise.SetValue("3.123456");
    EXPECT_EQ(precise.Read("1", ".").value, "2.000000") << "as many decimals as the value";
    NumberField field = Limited("", "65535", "whole");
    field.SetValue("80");
    EXPECT_EQ(field.Read("70000", ".").value, "65535");
    NumberField fraction = Limited("1/2", "");
    fraction.SetValue("3/4");
    EXPECT_EQ(fraction.Read("1/4", ".").value, "0500000/1000000");
}

TEST(NumberField, RoundsALimitForAWholeValue) {
    NumberField field = Limited("2.4", "", "whole");
    field.SetValue("5");
    const NumberField::Reading reading = field.Read("1", ".");
    EXPECT_EQ(reading.closest, "2.400000");
    EXPECT_EQ(reading.value, "2");
}

TEST(NumberField, WritesTheClosestNumberUncut) {
    NumberField field = Limited("1e308", "");
    const NumberField::Reading reading = field.Read("1", ".");
    EXPECT_EQ(reading.closest.size(), 316u);
    EXPECT_LE(reading.value.size(), kLongestNumberText);
}

TEST(NumberField, ChecksTheRangeOfBlanksAfterAnEmptyValue) {
    NumberField field = Limited("1", "");
    field.SetValue("5");
    field.SetValue("");
    const NumberField::Reading reading = field.Read("  ", ".");
    EXPECT_TRUE(reading.outOfRange.has_value());
    EXPECT_EQ(reading.closest, "1.000000");
}

TEST(NumberField, TakesAValueAtItsLimit) {
    NumberField field = Limited("0.5", "10");
    EXPECT_EQ(Read(field, "0.5"), "0.5");
    EXPECT_EQ(Read(field, "10"), "10");
    EXPECT_EQ(Read(field, "1/2"), "1/2");
}

TEST(NumberField, ChecksNoRangeOfAPhotographicValueAndOfAnUnchangedText) {
    NumberField time = Limited("5", "6", "apex_aperture");
    EXPECT_EQ(Read(time, "100"), "100");
    EXPECT_EQ(Read(time, "1"), "1");
    NumberField field = Limited("5", "6", "whole");
    EXPECT_EQ(field.SetValue("7"), "7");
    EXPECT_EQ(Read(field, "7"), "7");
}

TEST(NumberField, TakesALimitThatIsNoNumberAsZero) {
    NumberField field = Limited("nonsense", "");
    EXPECT_EQ(Read(field, "1"), "1");
    const NumberField::Reading reading = field.Read("-1", ".");
    EXPECT_EQ(reading.closest, "0.000000");
    EXPECT_EQ(reading.outOfRange.value().first, "nonsense");
}

TEST(NumberField, TakesHostileTexts) {
    const std::string digits(100'000, '7');
    const std::string_view texts[] = {
        "",         "-", "/",  "::",   ".",   "/:.", "1e308", "-1e308", "1e308/1e-308",
        "\xFF\x80", "^", "^0", "%s%n", "1/0", "nan", "0x1p9", digits,   "\t\n"};
    for (const char* const format : {"", "whole", "decimal", "fraction", "ratio", "apex_aperture",
                                     "apex_shutterspeed", "apex_brightness", "x"}) {
        for (const std::string_view text : texts) {
            NumberField field(
                {.minimum = text, .maximum = "/", .format = format, .precision = INT32_MAX, .addIn = text});
            EXPECT_LE(field.SetValue(text).size(), kLongestNumberText + text.size());
            for (const std::string_view typed : texts) {
                EXPECT_LE(field.Read(typed, text).value.size(), std::max(kLongestNumberText, text.size()))
                    << format << " " << text.substr(0, 9) << " " << typed.substr(0, 9);
            }
        }
    }
}

TEST(RangeMessage, NamesTheMaximumForBothPlacesIfItIsTheOnlyLimit) {
    NumberField field = Limited("", "7");
    const auto outOfRange = field.Read("8", ".").outOfRange;
    ASSERT_TRUE(outOfRange.has_value());
    EXPECT_EQ(RangeMessage("^0 or ^1", *outOfRange), "7 or 7");
}

TEST(RangeMessage, ReplacesTheFirstPlaceOfEachLimitInAnyOrder) {
    const OutOfRange both{"", "1", "2"};
    EXPECT_EQ(RangeMessage("^1 and ^0, ^0 and ^1", both), "2 and 1, ^0 and ^1");
    EXPECT_EQ(RangeMessage("no place", both), "no place");
    EXPECT_EQ(RangeMessage("^0^1", {"", "^1", "^0"}), "^1^0") << "what is put in is not searched";
}

} // namespace
} // namespace brixen::zeve
