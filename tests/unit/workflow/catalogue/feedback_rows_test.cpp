#include "workflow/catalogue/feedback_rows.h"

#include "dictionaries/translation.h"
#include "values/unicode/lenient_text.h"
#include "workflow/catalogue/feedback_data.h"
#include "workflow/context/context_keys.h"
#include "workflow/resources/resource_layer.h"

#include <gmock/gmock.h>

namespace brixen::pvn::pvn_workflow {
namespace {

using testing::Each;
using testing::ElementsAre;
using testing::Property;

class FeedbackRows : public testing::Test {
protected:
    FeedbackRows() {
        zeve::AddKeyValue("$$$/pvn/feedback/field/subject=Subject: ^0");
        zeve::AddKeyValue("$$$/pvn/feedback/field/comment=Comment: ^0");
        zeve::AddKeyValue("$$$/pvn/feedback/field/aperture=Aperture: ^0");
        zeve::AddKeyValue("$$$/pvn/feedback/field/locale=Language: ^0");
        zeve::AddKeyValue("$$$/pvn/feedback/field/product=Application: ^0");
        zeve::AddKeyValue("$$$/pvn/feedback/field/log=Log: ^0");
        zeve::AddKeyValue("$$$/pvn/feedback/storage/more=More: ^0");
    }
    ~FeedbackRows() override { ShutDownResources(); }

    // The rows of a log alone.
    std::vector<std::u16string> RowsOfLog(const std::string& text) {
        SetString(bag, PvnWFKey_FeedbackLog, text);
        return RowsOfFeedback(bag);
    }

    T_Storage bag;
};

TEST_F(FeedbackRows, AreTheLinesOfTheFieldsThatAreNotEmpty) {
    SetString(bag, PvnWFKey_FeedbackSubject, "Gray ^1 & sky");
    SetString(bag, PvnWFKey_FeedbackComment, "");
    EXPECT_THAT(RowsOfLog("one\n\ntwo\n"),
                ElementsAre(u"Subject: Gray ^1 & sky", u"Log: one", u"    ", u"    two", u"    "));
}

TEST_F(FeedbackRows, OfNothingAreNone) { EXPECT_TRUE(RowsOfFeedback(bag).empty()); }

TEST_F(FeedbackRows, ALongLineGoesOnAfterAnEllipsis) {
    const std::u16string label = u"Log: ";
    const auto rows = RowsOfLog(std::string(2 * kLongestRow, 'x') + "\n" + std::string(kLongestRow, 'y') +
                                "\n" + std::string(kLongestRow + 1, 'z'));
    EXPECT_THAT(rows, ElementsAre(label + std::u16string(kLongestRow - label.size(), u'x') + u"\u2026",
                                  u"    " + std::u16string(kLongestRow, u'x') + u"\u2026",
                                  u"    " + std::u16string(label.size(), u'x'),
                                  u"    " + std::u16string(kLongestRow, u'y'),
                                  u"    " + std::u16string(kLongestRow, u'z') + u"\u2026", u"    z"));
}

TEST_F(FeedbackRows, ALongLineIsCutBetweenCharacters) {
    std::string line = "x"; // with the label an even number of units, so that a pair is on the border
    for (std::size_t i = 0; i < kLongestRow; ++i) line += "\U0001F4F7";
    const auto rows = RowsOfLog("\nx" + line);
    ASSERT_EQ(rows.size(), 4u);
    EXPECT_EQ(rows[1].size(), 4 + kLongestRow + 1);
    const auto oddRows = RowsOfLog("\n" + line);
    ASSERT_EQ(oddRows.size(), 4u);
    EXPECT_EQ(oddRows[1].size(), 4 + kLongestRow) << "one unit less";
    EXPECT_TRUE(oddRows[2].starts_with(u"    \U0001F4F7"));
}

TEST_F(FeedbackRows, ThatAreTooManyAreCounted) {
    const auto most = RowsOfLog(std::string(kMostRows - 1, '\n'));
    ASSERT_EQ(most.size(), kMostRows);
    EXPECT_EQ(most.back(), u"    ");
    const auto rows = RowsOfLog(std::string(256 * 1024, '\n'));
    ASSERT_EQ(rows.size(), kMostRows);
    EXPECT_EQ(rows[kMostRows - 2], u"    ");
    EXPECT_EQ(rows.back(), u"More: 258050");
}

TEST_F(FeedbackRows, OfALongFieldLeaveThoseOfTheOthersInTheList) {
    SetString(bag, PvnWFKey_FeedbackSubject, "Gray sky");
    SetString(bag, PvnWFKey_FeedbackComment, std::string(16384, '\n'));
    SetString(bag, PvnWFKey_FeedbackAperture, "2.8");
    SetString(bag, PvnWFKey_PageLocale, "en_US");
    SetString(bag, PvnWFKey_ProductName, "Host");
    auto rows = RowsOfLog("one\ntwo");
    ASSERT_EQ(rows.size(), 2 * kMostRows / 6 + 5) << "two shares of six, and the five rows behind them";
    EXPECT_EQ(rows[2 * kMostRows / 6 - 2], u"    ");
    rows.erase(rows.begin() + 2, rows.end() - 6);
    EXPECT_THAT(rows, ElementsAre(u"Subject: Gray sky", u"Comment: ", u"More: 15022", u"Aperture: 2.8",
                                  u"Language: en_US", u"Application: Host", u"Log: one", u"    two"));
}

TEST_F(FeedbackRows, ThatAFieldLeavesGoToThoseBehindIt) {
    SetString(bag, PvnWFKey_FeedbackComment, "one\ntwo");
    const auto rows = RowsOfLog(std::string(kMostRows - 3, '\n'));
    ASSERT_EQ(rows.size(), kMostRows);
    EXPECT_EQ(rows[2], u"Log: ");
    EXPECT_EQ(rows.back(), u"    ");
}

TEST_F(FeedbackRows, OfEveryLongFieldAreCountedByThemselves) {
    SetString(bag, PvnWFKey_FeedbackComment, std::string(9999, '\n'));
    const auto rows = RowsOfLog(std::string(4999, '\n'));
    ASSERT_EQ(rows.size(), kMostRows);
    EXPECT_EQ(rows[kMostRows / 2 - 1], u"More: 7953");
    EXPECT_EQ(rows[kMostRows / 2], u"Log: ");
    EXPECT_EQ(rows.back(), u"More: 2953");
}

TEST_F(FeedbackRows, OfOneLineOfTheWholeLogAreAllShownAndShort) {
    const auto rows = RowsOfLog(std::string(256 * 1024, 'x'));
    EXPECT_EQ(rows.size(), 525u);
    EXPECT_THAT(rows, Each(Property(&std::u16string::size, testing::Le(4 + kLongestRow + 1))));
}

TEST_F(FeedbackRows, ShowWhatWouldHideOrReorder) {
    SetString(bag, PvnWFKey_FeedbackSubject, "invoice\u202Egpj.exe \u2066x\u200B");
    SetString(bag, PvnWFKey_FeedbackComment, "a\tb\u2028c\n\u202Ed\U000E0041e");
    EXPECT_THAT(RowsOfFeedback(bag), ElementsAre(u"Subject: invoice\uFFFDgpj.exe \uFFFDx\uFFFD",
                                                 u"Comment: a b\uFFFDc", u"    \uFFFDd\uFFFDe"));
    EXPECT_EQ(StringOf(bag, PvnWFKey_FeedbackComment), "a\tb\u2028c\n\u202Ed\U000E0041e")
        << "it is sent as it was typed";
}

TEST_F(FeedbackRows, ShowOrdinaryTextAsItIs) {
    SetString(bag, PvnWFKey_FeedbackSubject, "می\u200Cخواهم ❤\uFE0F");
    SetString(bag, PvnWFKey_FeedbackComment, "Dampf\u00ADschiff\n\U0001F468\u200D\U0001F469");
    EXPECT_THAT(RowsOfFeedback(bag),
                ElementsAre(u"Subject: می\u200Cخواهم ❤\uFE0F", u"Comment: Dampf\u00ADschiff",
                            u"    \U0001F468\u200D\U0001F469"));
}

TEST_F(FeedbackRows, OfBytesThatAreNoTextHaveReplacements) {
    EXPECT_THAT(RowsOfLog("\xFF\xC3\n\x80"), ElementsAre(u"Log: \uFFFD\uFFFD", u"    \uFFFD"));
}

} // namespace
} // namespace brixen::pvn::pvn_workflow
