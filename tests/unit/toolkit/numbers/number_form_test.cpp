#include "toolkit/numbers/number_form.h"

#include <gtest/gtest.h>

namespace brixen::zeve {
namespace {

struct FormCase {
    const char* text;
    NumberForm form;
    std::size_t position;
};

TEST(NumberForm, DependsOnTheSignsOfTheTextAlone) {
    constexpr FormCase kCases[] = {
        {"", NumberForm::kWhole, 0},         {"12", NumberForm::kWhole, 0},
        {"abc", NumberForm::kWhole, 0},      {"12.34", NumberForm::kDecimal, 2},
        {".5", NumberForm::kDecimal, 0},     {"3/4", NumberForm::kFraction, 1},
        {"1.5/2", NumberForm::kFraction, 3}, {"16:9", NumberForm::kRatio, 2},
        {"::", NumberForm::kRatio, 0},       {"3/4:1", NumberForm::kFraction, 3},
        {"1:3/4", NumberForm::kFraction, 1}, {"1.5:2", NumberForm::kDecimal, 3},
        {"1/2/3", NumberForm::kFraction, 1}, {"1.5.2", NumberForm::kDecimal, 1},
    };
    for (const FormCase& each : kCases) {
        const ClassifiedNumber classified = ClassifyNumberText(each.text);
        EXPECT_EQ(classified.form, each.form) << each.text;
        EXPECT_EQ(classified.position, each.position) << each.text;
    }
}

TEST(NumberForm, HasAnExactName) {
    EXPECT_EQ(NumberFormOf("whole"), NumberForm::kWhole);
    EXPECT_EQ(NumberFormOf("decimal"), NumberForm::kDecimal);
    EXPECT_EQ(NumberFormOf("fraction"), NumberForm::kFraction);
    EXPECT_EQ(NumberFormOf("ratio"), NumberForm::kRatio);
    EXPECT_EQ(NumberFormOf("apex_aperture"), NumberForm::kApexAperture);
    EXPECT_EQ(NumberFormOf("apex_shutterspeed"), NumberForm::kApexShutterSpeed);
    EXPECT_EQ(NumberFormOf("apex_brightness"), NumberForm::kApexBrightness);
    for (const char* const other : {"", "Whole", "apex", "apex_iso"}) {
        EXPECT_EQ(NumberFormOf(other), NumberForm::kUnknown) << other;
    }
}

TEST(NumberForm, ThreeFormsAreApex) {
    for (const char* const name : {"apex_aperture", "apex_shutterspeed", "apex_brightness"}) {
        EXPECT_TRUE(IsApex(NumberFormOf(name))) << name;
    }
    for (const char* const name : {"whole", "decimal", "fraction", "ratio", "apex"}) {
        EXPECT_FALSE(IsApex(NumberFormOf(name))) << name;
    }
}

} // namespace
} // namespace brixen::zeve
