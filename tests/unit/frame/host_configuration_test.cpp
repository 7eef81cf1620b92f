#include "frame/exports/host_configuration.h"

#include "frame/platform/posix/frame_twin.h"
#include "support/languages.h"

#include <gtest/gtest.h>

namespace brixen::pvn {
namespace {

class HostConfiguration : public testing::Test {
protected:
    void TearDown() override { ResetFrameTwin(); }

    static std::uint32_t OptionsFor(LanguageIdentifier language) { return std::uint32_t{language} << 16; }

    static std::string DisplayName() {
        char name[kHostDisplayNameSize];
        GetHostDisplayName(name);
        return name;
    }
};

TEST_F(HostConfiguration, TheLanguageIsThatOfTheHostOptions) {
    EXPECT_EQ(GetHostLanguage(OptionsFor(0x040D)), "he_IL");
    EXPECT_EQ(GetHostLanguage(OptionsFor(0x0407) | 0xFFFF), "de_DE");
    EXPECT_EQ(GetHostLanguage(OptionsFor(0x0411)), "ja_JP");
}

TEST_F(HostConfiguration, WithoutOneTheLanguageIsThatOfTheThread) {
    GetFrameTwin().threadLanguage = 0x040C;
    EXPECT_EQ(GetHostLanguage(0), "fr_FR");
    EXPECT_EQ(GetHostLanguage(kOptionWithholdCancel), "fr_FR");
}

TEST_F(HostConfiguration, ALanguageThatTheSystemDoesNotKnowCountsAsNone) {
    GetFrameTwin().threadLanguage = 0x0407;
    EXPECT_EQ(GetHostLanguage(OptionsFor(0xFFFE)), "de_DE");
    GetFrameTwin().threadLanguage = 0xFFFE;
    EXPECT_EQ(GetHostLanguage(OptionsFor(0xFFFE)), "en_US");
}

TEST_F(HostConfiguration, ShippedLocalesAreFoundExactly) {
    for (const std::string& language : pavane_test::Locales()) {
        char locale[kHostLocaleSize] = "before";
        EXPECT_TRUE(FindHostLocale(language, false, locale));
        EXPECT_EQ(locale, language);
    }
    for (const std::string language : {"", "en", "en_GB", "de_CH", "en_us", "he-IL", "en_US_", "ar_SA"}) {
        char locale[kHostLocaleSize] = "before";
        EXPECT_FALSE(FindHostLocale(language, false, locale)) << language;
        EXPECT_STREQ(locale, "");
    }
}

TEST_F(HostConfiguration, TheFallbackLookupAlwaysFindsEnglish) {
    char locale[kHostLocaleSize] = "before";
    EXPECT_TRUE(FindHostLocale("xx_YY", true, locale));
    EXPECT_STREQ(locale, "en_US");
}

TEST_F(HostConfiguration, TheDisplayNameIsTheFirstNameOfTheProgram) {
    GetFrameTwin().hostProgram = {"Product", "Description", "host.exe"};
    EXPECT_EQ(DisplayName(), "Product");
    GetFrameTwin().hostProgram.productName.clear();
    EXPECT_EQ(DisplayName(), "Description");
    GetFrameTwin().hostProgram.fileDescription.clear();
    EXPECT_EQ(DisplayName(), "host.exe");
    GetFrameTwin().hostProgram.fileName.clear();
    EXPECT_EQ(DisplayName(), "");
}

TEST_F(HostConfiguration, ALongDisplayNameIsCutBetweenCharacters) {
    auto& name = GetFrameTwin().hostProgram.productName;
    name = std::string(99, 'n');
    EXPECT_EQ(DisplayName(), std::string(99, 'n'));
    name = std::string(100, 'n');
    EXPECT_EQ(DisplayName(), std::string(99, 'n'));
    name = std::string(98, 'n') + "\u00e4"; // two bytes, one of which would fit
    EXPECT_EQ(DisplayName(), std::string(98, 'n'));
    name = std::string(97, 'n') + "\u00e4";
    EXPECT_EQ(DisplayName(), std::string(97, 'n') + "\u00e4");
    name = std::string(96, 'n') + "\U0001F600"; // four bytes, three of which would fit
    EXPECT_EQ(DisplayName(), std::string(96, 'n'));
    name = std::string(200, '\x80'); // no character at all
    EXPECT_EQ(DisplayName(), "");
}

TEST_F(HostConfiguration, ARefreshFillsTheContext) {
    GetFrameTwin().hostProgram.productName = "Product";
    PavaneContext context;
    RefreshHostStrings(context, "he_IL");
    EXPECT_STREQ(context.hostLocale, "he_IL");
    EXPECT_EQ(context.localeIsFallback, 0u);
    EXPECT_STREQ(context.hostDisplayName, "Product");
}

TEST_F(HostConfiguration, ARefreshMarksAFallbackLocale) {
    PavaneContext context;
    RefreshHostStrings(context, "it_IT");
    EXPECT_STREQ(context.hostLocale, "en_US");
    EXPECT_EQ(context.localeIsFallback, 1u);
    RefreshHostStrings(context, "de_DE");
    EXPECT_STREQ(context.hostLocale, "de_DE");
    EXPECT_EQ(context.localeIsFallback, 0u);
}

} // namespace
} // namespace brixen::pvn
