// What the panes of Privacy make of the language list and of a statement.
#include "workflow/catalogue/privacy_data.h"

#include "support/languages.h"
#include "workflow/resources/resource_layer.h"

#include <gmock/gmock.h>

namespace brixen::pvn::pvn_workflow {
namespace {

using Languages = std::vector<StatementLanguage>;

std::vector<std::u16string> LabelsOf(const Languages& list) {
    std::vector<std::u16string> labels;
    for (const PrivacyLanguage& row : PopupRows(list)) labels.push_back(row.label);
    return labels;
}

std::string LocaleFor(std::vector<std::string> locales, std::string_view wanted) {
    std::vector<PrivacyLanguage> rows;
    for (const std::string& locale : locales) rows.push_back({locale, u"name"});
    return rows[RowOfBestLocale(rows, wanted)].locale;
}

TEST(PrivacyRows, AreTheNamesInTheOrderOfTheList) {
    EXPECT_THAT(LabelsOf({{"ja_JP", "\xE6\x97\xA5"}, {"de_DE", "Deutsch"}}),
                testing::ElementsAre(u"\u65E5", u"Deutsch"));
    EXPECT_THAT(LabelsOf({}), testing::IsEmpty());
}

TEST(PrivacyRows, HoldEachLanguageOnce) {
    EXPECT_THAT(LabelsOf({{"a", "first"}, {"b", "other"}, {"a", "second"}}),
                testing::ElementsAre(u"first", u"other"));
}

TEST(PrivacyRows, AreLocalesWhereThereIsNoName) {
    EXPECT_THAT(LabelsOf({{"de_DE", ""}}), testing::ElementsAre(u"de_DE"));
}

TEST(PrivacyRows, EndAtANul) {
    EXPECT_THAT(LabelsOf({{"a", std::string("seen\0unseen", 11)}, {"b", std::string("\0unseen", 7)}}),
                testing::ElementsAre(u"seen"));
}

TEST(PrivacyRows, LeaveOutLanguagesWithoutAUsableName) {
    EXPECT_THAT(LabelsOf({{"", ""}, {"a", "\xFF"}, {"\xC3", ""}, {"b", "kept"}, {"", "kept too"}}),
                testing::ElementsAre(u"kept", u"kept too"));
}

TEST(PrivacyRow, IsThatOfTheLanguage) {
    EXPECT_EQ(LocaleFor({"en_US", "de_DE", "de_AT"}, "de_AT"), "de_AT");
    EXPECT_EQ(LocaleFor({"en_US", "de_DE", "de_AT"}, "de_CH"), "de_DE");
    EXPECT_EQ(LocaleFor({"en_US", "de"}, "de_CH"), "de");
    EXPECT_EQ(LocaleFor({"ja_JP", "en_US", "en_GB"}, "xx_YY"), "en_US");
    EXPECT_EQ(LocaleFor({"ja_JP", "de_DE"}, "xx_YY"), "ja_JP");
    EXPECT_EQ(LocaleFor({"ja_JP", "en_US"}, ""), "en_US");
}

TEST(PrivacyRow, OfNoneIsTheFirst) { EXPECT_EQ(RowOfBestLocale({}, "de_DE"), 0u); }

TEST(PrivacyDirection, IsThatOfTheLanguageInAnyRegion) {
    for (const char* locale : {"he_IL", "ar_AE", "ar_SA", "ar", "fa_IR", "ur_PK", "yi", "iw_IL"})
        EXPECT_TRUE(IsWrittenRightToLeft(locale)) << locale;
    for (const char* locale : {"", "en_US", "de_DE", "ja_JP", "hex", "arn_CL", "HE_IL", "_he"})
        EXPECT_FALSE(IsWrittenRightToLeft(locale)) << locale;
    for (const pavane_test::Language& language : pavane_test::Languages())
        EXPECT_EQ(IsWrittenRightToLeft(language.locale), language.isRightToLeft) << language.locale;
}

TEST(PrivacyField, ShowsTheTextWithWholeLineEnds) {
    EXPECT_EQ(TextForField(u"a\r\nb\r\n"), u"a\r\nb\r\n");
    EXPECT_EQ(TextForField(u"\na\n\nb"), u"\r\na\r\n\r\nb");
    EXPECT_EQ(TextForField(u"a\rb"), u"a\rb");
}

TEST(PrivacyField, IsEmptyWhereThereIsNothingToSee) {
    for (const char16_t* text : {u"", u" ", u"\r\n\t \n"}) EXPECT_EQ(TextForField(text), u"");
}

} // namespace
} // namespace brixen::pvn::pvn_workflow
