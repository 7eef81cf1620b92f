#include "toolkit/boxes/text_measure.h"
#include "unit/toolkit/boxes/box_fixture.h"
#include "view/scope/system_budget.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <utility>

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
    std::int32_t HeightInWords(std::string_view name, std::int64_t width) {
        CExpressionScope view(&rootScope);
        view.DefineString("name", name);
        view.DefineNumber("whole_words", 1);
        return MeasureName(box, view, width).height;
    }
    std::size_t Pieces() const { return headless::CallsOf("MeasureBeginnings").size(); }
    // The UTF-16 units that all calls have measured together.
    std::size_t UnitsMeasured() const {
        std::size_t units = 0;
        for (const char* name : {"MeasureBeginnings", "MeasureText"}) {
            for (const headless::Call& call : headless::CallsOf(name)) units += call.text.size();
        }
        return units;
    }

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

TEST_F(TextMeasureTest, ALongTextTakesOneCallALineAndLittleMoreThanItsUnits) {
    constexpr std::size_t kUnits = 200'000;
    const std::string text(kUnits, 'x');
    EXPECT_EQ(Measure(text, 10 * kUnit).height, 20'000 * kLine);
    EXPECT_EQ(Pieces(), 20'000u + 1); // the first guess is too short
    EXPECT_LT(UnitsMeasured(), kUnits * 3 / 2);
    headless::State().calls.clear();
    EXPECT_EQ(Measure(text, 3'000 * kUnit).height, 67 * kLine);
    EXPECT_EQ(Pieces(), 67u + 1);
    EXPECT_LT(UnitsMeasured(), kUnits * 3 / 2);
}

TEST_F(TextMeasureTest, ANarrowWidthMeasuresFewUnitsALine) {
    constexpr std::size_t kUnits = 10'000;
    EXPECT_EQ(Measure(std::string(kUnits, 'x'), 1).height, static_cast<std::int32_t>(kUnits) * kLine);
    EXPECT_EQ(Pieces(), kUnits);
    EXPECT_TRUE(headless::CallsOf("MeasureText").empty());
    EXPECT_LE(UnitsMeasured(), kUnits * 2); // two to see that none fits
    headless::State().calls.clear();
    const std::string lines(kUnits, '\n');
    EXPECT_EQ(HeightInWords(lines, 30'000), static_cast<std::int32_t>(kUnits + 1) * kLine);
    EXPECT_LE(UnitsMeasured(), 1u);
}

TEST_F(TextMeasureTest, AllLinesOfATextTakeTheScreenOnce) {
    (void)Measure("0123456789", 4 * kUnit);
    (void)HeightInWords("aaa bbb\nccc", 3 * kUnit);
    (void)MeasureLongestItem(box, "One{1}");
    EXPECT_EQ(headless::CallsOf("TakeScreen").size(), 3u);
    EXPECT_EQ(headless::CallsOf("LeaveScreen").size(), 3u);
}

// --- The budget

TEST_F(TextMeasureTest, MeasuringCostsItsUnitsAndSixteenMoreACall) {
    SystemBudget budget;
    box.budget = &budget;
    const auto cost = [&](auto measure) {
        budget.measuredUnits = 1000;
        measure();
        return 1000 - budget.measuredUnits;
    };
    EXPECT_EQ(cost([&] { (void)Measure("12345"); }), 16u + 5);
    EXPECT_EQ(cost([&] { (void)Measure("abc", 1); }), 3 * 16u + 2 + 2 + 1);
    EXPECT_EQ(cost([&] { HeightInWords("\n", 100); }), 3 * 16u + 1) << "two lines, and the height of one";
    EXPECT_EQ(cost([&] { (void)MeasureLongestItem(box, "One{1};Three{3}"); }), 16u + 8);
}

TEST_F(TextMeasureTest, MeasuringEndsWhereTheBudgetDoes) {
    SystemBudget budget;
    box.budget = &budget;
    budget.measuredUnits = 3 * 16 + 2 + 2 + 1;
    EXPECT_EQ(Measure("abc", 1).height, 3 * kLine);
    EXPECT_EQ(budget.measuredUnits, 0u);
    budget.measuredUnits = 3 * 16 + 2 + 2;
    EXPECT_THROW(Measure("abc", 1), SystemBudgetExhausted);
    EXPECT_EQ(budget.measuredUnits, 16u) << "the last line was not measured";
    EXPECT_TRUE(headless::State().fonts.empty());
    EXPECT_EQ(headless::CallsOf("TakeScreen").size(), headless::CallsOf("LeaveScreen").size());
}

// --- Whole words

TEST_F(TextMeasureTest, WholeWordsBreakLinesBetweenWords) {
    struct Case {
        const char* text;
        std::int32_t units, lines;
    };
    const Case cases[] = {
        {"", 10, 0},
        {"aaa bbb ccc ddd", 15, 1},
        {"aaa bbb ccc ddd", 14, 2},
        // The space after a word has to fit too.
        {"aaa bbb ccc ddd", 8, 2},
        {"aaa bbb ccc ddd", 7, 3},
        {"aaa bbb ccc ddd", 6, 4}, // three pieces
        {"aaa bbb ccc ddd", 3, 4},
        {"aaa ", 3, 1},
        {"aaa  bbb", 5, 2},
        {"aaa  bbb", 4, 2},
        // A word longer than the line is not cut.
        {"abcdefgh", 3, 1},
        {"a abcdefgh b", 3, 3},
        {"abcdefgh b", 0, 2},
        // Line feeds, the last of them too, begin a line.
        {"a\nb", 10, 2},
        {"a\n\nb", 10, 3},
        {"a\n", 10, 2},
        {"\n", 10, 2},
        {"aaa bbb\nccc", 3, 3},
    };
    for (const Case& test : cases) {
        EXPECT_EQ(HeightInWords(test.text, test.units * kUnit + kUnit - 1), test.lines * kLine)
            << test.text << " in " << test.units;
    }
}

TEST_F(TextMeasureTest, WholeWordsBreakLinesBesideEastAsianCharacters) {
    EXPECT_EQ(HeightInWords("\xE3\x81\x82\xE3\x81\x84\xE3\x81\x86", 2 * kUnit), 2 * kLine);
    const std::string between = "aa\xE3\x81\x82";
    EXPECT_EQ(HeightInWords(between + "bb", 4 * kUnit), 2 * kLine); // after it
    EXPECT_EQ(HeightInWords(between + "bb", 2 * kUnit), 3 * kLine); // before it
    const std::pair<const char*, bool> characters[] = {
        {"\xC3\xA4", false},    {"\xE2\xB9\xBF", false}, {"\xE2\xBA\x80", true},
        {"\xE9\xBF\xBF", true}, {"\xEA\x80\x80", false}, {"\xEF\xBB\xBF", false},
        {"\xEF\xBC\x80", true}, {"\xEF\xBF\xAF", true},  {"\xEF\xBF\xB0", false},
    };
    for (const auto& [character, breaks] : characters) {
        const std::string text = std::string("a") + character + "b";
        EXPECT_EQ(HeightInWords(text, 2 * kUnit), (breaks ? 2 : 1) * kLine) << character;
    }
}

TEST_F(TextMeasureTest, WholeWordsTakeTimeLinearInTheText) {
    std::string text;
    for (int i = 0; i < 20'000; ++i) text += "seven z ";
    HeightInWords(text, 40 * kUnit);
    EXPECT_EQ(Pieces(), 4'000u + 1); // 40 units hold five times eight
    EXPECT_LT(UnitsMeasured(), text.size() * 3 / 2);
    headless::State().calls.clear();
    // Every line is broken at its beginning.
    text.clear();
    for (int i = 0; i < 1'000; ++i) text += "a " + std::string(40, 'b') + " ";
    HeightInWords(text, 40 * kUnit);
    EXPECT_LT(UnitsMeasured(), text.size() * 3);
}

TEST_F(TextMeasureTest, AViewCanAskForWholeWordsOnceForAll) {
    const Attributes attributes = {{"name", "aaa bbb ccc ddd"}, {"width", 6 * kUnit}};
    EXPECT_EQ(Prepare("static_text", attributes).Number("height"), 3 * kLine);
    rootScope.DefineNumber("whole_words", 1);
    EXPECT_EQ(Prepare("static_text", attributes).Number("height"), 4 * kLine);
    EXPECT_EQ(Prepare("static_text", {{"name", "aaa bbb"}}).Number("height"), kLine);
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
        (void)MeasureLongestItem(CEveBox(), test.items);
        EXPECT_EQ(headless::CallsOf("MeasureText").back().text, test.measured) << test.items;
        EXPECT_TRUE(headless::State().fonts.empty());
    }
}

TEST(LongestItem, TakesAnyNumberAndLengthOfEntries) {
    headless::Reset();
    std::string items;
    for (int i = 0; i < 1'000; ++i) items += "entry " + std::to_string(i) + "{v};";
    items += std::string(2'000, 'x') + "{v};";
    EXPECT_EQ(MeasureLongestItem(CEveBox(), items).width, 2'003 * kUnit);
}

} // namespace
} // namespace brixen::zeve
