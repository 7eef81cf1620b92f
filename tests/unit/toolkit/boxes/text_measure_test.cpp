#include "toolkit/boxes/text_measure.h"
#include "unit/toolkit/boxes/box_fixture.h"

#include <gtest/gtest.h>

namespace brixen::zeve {
namespace {

constexpr std::int32_t kUnit = 6, kLine = 13; // of the recorded window system

class TextMeasureTest : public BoxTest {
protected:
    platform::Extent Measure(std::string_view name, std::int64_t width = 0,
                             std::string_view alternative = "") {
        CExpressionScope view(&rootScope);
        view.DefineString("name", name);
        if (!alternative.empty()) view.DefineString("alt_name", alternative);
        return MeasureName(box, view, width);
    }
    std::size_t Pieces() const { return headless::CallsOf("MeasureFitting").size(); }

    CEveBox box;
};

TEST_F(TextMeasureTest, AWholeTextHasTheExtentOfOneLine) {
    const platform::Extent extent = Measure("Continue");
    EXPECT_EQ(extent.width, 8 * kUnit);
    EXPECT_EQ(extent.height, kLine);
    EXPECT_EQ(Pieces(), 0u);
}

TEST_F(TextMeasureTest, TheNameIsTranslatedAndStored) {
    Translate("$$$/a/b=Weiter");
    EXPECT_EQ(Measure("$$$/a/b=Go on now").width, 6 * kUnit);
    EXPECT_EQ(box.nameText, "Weiter");
}

TEST_F(TextMeasureTest, TheLongerOfNameAndAlternativeInBytesIsMeasured) {
    EXPECT_EQ(Measure("Hide", 0, "Show all").width, 8 * kUnit);
    EXPECT_EQ(box.nameText, "Hide");
    EXPECT_EQ(Measure("Hide all", 0, "Show").width, 8 * kUnit);
    // Two units of three bytes each are longer than five units of one byte.
    EXPECT_EQ(Measure("abcde", 0, "\xE3\x81\x82\xE3\x81\x82").width, 2 * kUnit);
    // Equal bytes: the name.
    EXPECT_EQ(Measure("abcdef", 0, "\xE3\x81\x82\xE3\x81\x82").width, 6 * kUnit);
}

TEST_F(TextMeasureTest, TheAlternativeIsTranslatedToo) {
    Translate("$$$/alt=A long translation");
    EXPECT_EQ(Measure("Hide", 0, "$$$/alt=x").width, 18 * kUnit);
}

TEST_F(TextMeasureTest, AnEmptyTextHasNoExtent) {
    for (const std::int64_t width : {0, 60}) {
        EXPECT_EQ(Measure("", width).width, 0);
        EXPECT_EQ(Measure("", width).height, 0);
    }
    EXPECT_EQ(Pieces(), 0u);
}

TEST_F(TextMeasureTest, AWidthCutsTheTextWhereItStopsFitting) {
    const platform::Extent extent = Measure("0123456789", 4 * kUnit + 5);
    EXPECT_EQ(extent.height, 3 * kLine); // 4, 4, 2
    EXPECT_EQ(extent.width, 4 * kUnit);
    EXPECT_EQ(Pieces(), 3u);
}

TEST_F(TextMeasureTest, WordsAreCutToo) { EXPECT_EQ(Measure("ab cdef", 3 * kUnit).height, 3 * kLine); }

TEST_F(TextMeasureTest, AWidthNarrowerThanACharacterPutsOneOnALine) {
    EXPECT_EQ(Measure("abc", kUnit - 1).height, 3 * kLine);
    EXPECT_EQ(Measure("abc", 1).height, 3 * kLine);
    EXPECT_EQ(Measure("abc", -100).height, 3 * kLine);
    EXPECT_EQ(Measure("abc", INT64_MIN).height, 3 * kLine);
    EXPECT_EQ(Measure("abc", INT64_MAX).height, kLine);
}

TEST_F(TextMeasureTest, ASurrogatePairIsNotSplit) {
    constexpr const char* kFaces = "\xF0\x9F\x98\x80\xF0\x9F\x98\x81"; // two characters, four units
    EXPECT_EQ(Measure(kFaces, 1).height, 2 * kLine);
    EXPECT_EQ(Measure(kFaces, 3 * kUnit).height, 2 * kLine);
    EXPECT_EQ(Measure("a\xF0\x9F\x98\x80", 2 * kUnit).height, 2 * kLine);
    EXPECT_EQ(Measure(kFaces, 4 * kUnit).height, kLine);
}

TEST_F(TextMeasureTest, ALongTextIsMeasuredInLinearTime) {
    const std::string text(200'000, 'x');
    EXPECT_EQ(Measure(text, 10 * kUnit).height, 20'000 * kLine);
    std::size_t handedOver = 0;
    for (const headless::Call& call : headless::CallsOf("MeasureFitting")) handedOver += call.text.size();
    EXPECT_LT(handedOver, 200'000u * 100);
    headless::State().calls.clear();
    EXPECT_EQ(Measure(text, 200'000 * kUnit).height, kLine);
    EXPECT_EQ(Measure(text, 3'000 * kUnit).height, 67 * kLine);
}

TEST_F(TextMeasureTest, MeasuringUsesTheFontOfTheViewAndFreesIt) {
    CExpressionScope view(&rootScope);
    view.DefineString("name", "OK");
    view.DefineNumber("font", 32001);
    (void)MeasureName(box, view, 0);
    EXPECT_EQ(headless::CallsOf("MakeFont").back().numbers[1], 700);
    EXPECT_TRUE(headless::State().fonts.empty());
    EXPECT_EQ(box.font, nullptr);
}

TEST_F(TextMeasureTest, InvalidUtf8ThrowsAndLeaksNothing) {
    EXPECT_ANY_THROW(Measure("a\xE3"));
    EXPECT_TRUE(headless::State().fonts.empty());
}

TEST(LongestItem, IsTheLongestEntryByBytesWithItsBraces) {
    struct Case {
        std::string items;
        const char16_t* measured;
    };
    const Case cases[] = {
        {"", u""},
        {"One{1}", u"One{1}"},
        {"One{1};Three{3};Two{2}", u"Three{3}"},
        // Of equals, the first.
        {"One{1};Two{2};x", u"One{1}"},
        // The very last entry counts as one byte shorter, but is measured whole.
        {"One{1};Four{4}", u"One{1}"},
        {"One{1};Three{3}", u"Three{3}"},
        // After a trailing semicolon it is the empty one.
        {"One{1};Four{4};", u"Four{4}"},
        // Bytes, not characters.
        {"abcdef;\xE3\x81\x82\xE3\x81\x82\xE3\x81\x82;x", u"\x3042\x3042\x3042"},
    };
    for (const Case& test : cases) {
        headless::Reset();
        (void)MeasureLongestItem(test.items);
        EXPECT_EQ(headless::CallsOf("MeasureText").back().text, test.measured) << test.items;
        EXPECT_TRUE(headless::State().fonts.empty());
    }
}

TEST(LongestItem, TakesAnyNumberAndLengthOfEntries) {
    headless::Reset();
    std::string items;
    for (int i = 0; i < 1'000; ++i) items += "entry " + std::to_string(i) + "{v};";
    items += std::string(2'000, 'x') + "{v};";
    EXPECT_EQ(MeasureLongestItem(items).width, 2'003 * kUnit);
}

} // namespace
} // namespace brixen::zeve
