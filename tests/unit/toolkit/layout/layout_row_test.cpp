// Rows: what they measure, and where they put their children from left to right, or from right to left.
#include "unit/toolkit/layout/layout_fixture.h"

#include <gtest/gtest.h>

namespace brixen::zeve {
namespace {

// A row of that head holding those children.
std::string Row(const std::string& head, const std::string& children) {
    return "root(placement: place_row" + (head.empty() ? "" : ", " + head) + ") {" + children + "}";
}

TEST(RowMeasure, WidthsAddUpAndTheTallestDecides) {
    const std::string text =
        Row("margin: 10, spacing: 5", "a(width: 20, height: 8); b(width: 30, height: 12);");
    const LaidOut plain = LayOutText(text);
    EXPECT_EQ(plain.FrameOf("root"), (Frame{0, 0, 75, 32}));
    EXPECT_EQ(plain.FrameOf("a"), (Frame{10, 12, 20, 8}));
    EXPECT_EQ(plain.FrameOf("b"), (Frame{35, 10, 30, 12}));
    const LaidOut mirrored = LayOutMirrored(text);
    EXPECT_EQ(mirrored.FrameOf("a"), (Frame{45, 12, 20, 8}));
    EXPECT_EQ(mirrored.FrameOf("b"), (Frame{10, 10, 30, 12}));
}

TEST(RowMeasure, OneChildNeedsNoSpacing) {
    EXPECT_EQ(LayOutText(Row("spacing: 9", "a(width: 20, height: 8);")).FrameOf("root"),
              (Frame{0, 0, 20, 8}));
}

TEST(RowMeasure, InsetsDoNotCount) {
    const LaidOut row = LayOutText(Row("", "a(width: 20, height: 8, inset: 30); b(width: 1);"));
    EXPECT_EQ(row.FrameOf("root").width, 21);
    EXPECT_EQ(row.FrameOf("a").left, 0);
}

TEST(RowMeasure, TheOutsetsAtTheEndsLoseTheRowsOwn) {
    const std::string children =
        "a(width: 10, height: 10, left_outset: 13, right_outset: 99, top_outset: 6);"
        "m(left_outset: 99, right_outset: 99);"
        "b(width: 10, height: 10, left_outset: 99, right_outset: 8, bottom_outset: 9);";
    const std::string margins = "margin_left: 2, margin_right: 3";
    EXPECT_EQ(LayOutText(Row(margins, children))["root"].outsets, (Outsets{11, 6, 5, 9}));
    EXPECT_EQ(LayOutText(Row(margins + ", left_outset: 4, right_outset: 2", children))["root"].outsets,
              (Outsets{7, 6, 3, 9}))
        << "13 - 2 - 4, and 8 - 3 - 2";
    EXPECT_EQ(LayOutText(Row(margins + ", left_outset: 8", children))["root"].outsets, (Outsets{8, 6, 5, 9}))
        << "13 - 2 - 8 is no more";
    EXPECT_EQ(LayOutText(Row(margins + ", left_outset: -4", "a();"))["root"].outsets, (Outsets{4, 0, 0, 0}))
        << "the greater of 0 - 2 and 0, less -4";
}

TEST(RowMeasure, OutsetsMoveTheChildren) {
    const std::string text = Row("margin_left: 2, margin_right: 3, left_outset: 4",
                                 "a(width: 10, height: 10, left_outset: 13, top_outset: 6);"
                                 "b(width: 10, height: 10, bottom_outset: 9);");
    const LaidOut plain = LayOutText(text);
    EXPECT_EQ(plain.FrameOf("root"), (Frame{0, 0, 25, 10}));
    EXPECT_EQ(plain.FrameOf("a"), (Frame{9, 6, 10, 10}));
    EXPECT_EQ(plain.FrameOf("b"), (Frame{19, 6, 10, 10}));
    const LaidOut mirrored = LayOutMirrored(text);
    EXPECT_EQ(mirrored.FrameOf("a"), (Frame{20, 6, 10, 10})) << "25 - 10 - (2 - 7)";
    EXPECT_EQ(mirrored.FrameOf("b"), (Frame{10, 6, 10, 10}));
}

TEST(RowVertical, ChildrenMeetAtTheLineOfTheirTopInsets) {
    struct Case {
        const char* vertical;
        Frame a, b;
    };
    const Case cases[] = {
        {"0", {0, 1, 10, 20}, {10, 11, 10, 12}},
        {"align_center", {0, 1, 10, 20}, {10, 11, 10, 12}},
        {"align_top", {0, 0, 10, 20}, {10, 11, 10, 12}},
        {"align_bottom", {0, 3, 10, 20}, {10, 11, 10, 12}},
        {"align_fill", {0, 0, 10, 23}, {10, 11, 10, 12}},
        {"align_proportional", {0, 0, 10, 20}, {10, 0, 10, 12}},
        {"6", {0, 0, 10, 20}, {10, 0, 10, 12}},
        {"-1", {0, 0, 10, 20}, {10, 0, 10, 12}},
    };
    for (const Case& c : cases) {
        const LaidOut row = LayOutText(Row(std::string("child_vertical: ") + c.vertical,
                                           "a(width: 10, height: 20, top_inset: 15);"
                                           "b(width: 10, height: 12, top_inset: 4);"));
        EXPECT_EQ(row.FrameOf("root").height, 23) << c.vertical;
        EXPECT_EQ(row.FrameOf("a"), c.a) << c.vertical;
        EXPECT_EQ(row.FrameOf("b"), c.b) << c.vertical;
    }
}

TEST(RowVertical, MarginsAndOutsetsBoundTheRoom) {
    const std::string head = "height: 60, margin_top: 5, margin_bottom: 7, top_outset: 3, child_vertical: ";
    const auto frame = [&head](const char* vertical) {
        return LayOutText(Row(head + vertical, "a(width: 1, height: 11);")).FrameOf("a");
    };
    // Above is 5 + 3, the floor 60 - 7 + 3.
    EXPECT_EQ(frame("align_top"), (Frame{0, 8, 1, 11}));
    EXPECT_EQ(frame("align_bottom"), (Frame{0, 45, 1, 11}));
    EXPECT_EQ(frame("align_fill"), (Frame{0, 8, 1, 48}));
    EXPECT_EQ(frame("align_center"), (Frame{0, 26, 1, 11})) << "37 / 2 + 8";
}

TEST(RowPlace, LeftRightAndNothingAreTheRunningPosition) {
    for (const char* alignment : {"0", "align_left", "align_right"}) {
        const std::string text = Row("width: 100, spacing: 5, child_horizontal: " + std::string(alignment),
                                     "a(width: 20); b(width: 30);");
        const LaidOut plain = LayOutText(text), mirrored = LayOutMirrored(text);
        EXPECT_EQ(plain.FrameOf("a").left, 0) << alignment;
        EXPECT_EQ(plain.FrameOf("b").left, 25) << alignment;
        EXPECT_EQ(mirrored.FrameOf("a").left, 80) << alignment;
        EXPECT_EQ(mirrored.FrameOf("b").left, 45) << alignment;
    }
}

TEST(RowPlace, FillingChildrenShareTheRoomAndLoseTheRemainder) {
    const std::string text = Row("width: 106, spacing: 5, margin: 10, child_horizontal: align_fill",
                                 "a(width: 20); b(width: 30);");
    const LaidOut plain = LayOutText(text), mirrored = LayOutMirrored(text);
    EXPECT_EQ(plain.FrameOf("a"), (Frame{10, 10, 35, 0}));
    EXPECT_EQ(plain.FrameOf("b"), (Frame{50, 10, 45, 0}));
    EXPECT_EQ(mirrored.FrameOf("a"), (Frame{61, 10, 35, 0}));
    EXPECT_EQ(mirrored.FrameOf("b"), (Frame{11, 10, 45, 0}));
}

TEST(RowPlace, ACenterdChildSitsInTheMiddleOfItsSlice) {
    const std::string text =
        Row("width: 100, spacing: 5", "a(width: 20, horizontal: align_center); b(width: 30);");
    const LaidOut plain = LayOutText(text), mirrored = LayOutMirrored(text);
    EXPECT_EQ(plain.FrameOf("a"), (Frame{22, 0, 20, 0}));
    EXPECT_EQ(plain.FrameOf("b").left, 70);
    EXPECT_EQ(mirrored.FrameOf("a"), (Frame{58, 0, 20, 0}));
    EXPECT_EQ(mirrored.FrameOf("b").left, 0);
}

TEST(RowPlace, ProportionalChildrenSpreadOverTheWidth) {
    const std::string two =
        Row("width: 100, child_horizontal: align_proportional", "a(width: 10); b(width: 10);");
    EXPECT_EQ(LayOutText(two).FrameOf("a").left, 0);
    EXPECT_EQ(LayOutText(two).FrameOf("b").left, 90);
    EXPECT_EQ(LayOutMirrored(two).FrameOf("a").left, 90);
    EXPECT_EQ(LayOutMirrored(two).FrameOf("b").left, 0);

    // 33 for each; the second starts at 43 and takes 43/87 of its 33, the third at 86 takes 86/87.
    const std::string three =
        Row("width: 130, child_horizontal: align_proportional", "a(width: 10); b(width: 10); c(width: 10);");
    EXPECT_EQ(LayOutText(three).FrameOf("b").left, 59);
    EXPECT_EQ(LayOutText(three).FrameOf("c").left, 119);
    EXPECT_EQ(LayOutMirrored(three).FrameOf("b").left, 61);
    EXPECT_EQ(LayOutMirrored(three).FrameOf("c").left, 1);
}

TEST(RowPlace, ProportionalWithNoWayLeftIsTheRunningPosition) {
    const LaidOut alone = LayOutText(Row("width: 50, margin_left: 5", "a(width: 10, horizontal: 3);"));
    EXPECT_EQ(alone.FrameOf("a").left, 5) << "nothing spent of no way";
    const std::string second =
        Row("width: 100, right_outset: 10", "a(width: 10); b(width: 10, horizontal: align_proportional);");
    EXPECT_EQ(LayOutText(second).FrameOf("b").left, 10) << "10 spent of no way";
    EXPECT_EQ(LayOutMirrored(second).FrameOf("b").left, 80);
}

TEST(RowPlace, AMirroredStretchingChildIsMovedByItsLeftOutset) {
    const auto leftOf = [](const char* alignment) {
        return LayOutMirrored(Row("width: 100", "a(width: 10); b(width: 20, left_outset: 7, horizontal: " +
                                                    std::string(alignment) + "); c();"))
            .FrameOf("b")
            .left;
    };
    EXPECT_EQ(leftOf("align_fill"), 7) << "7 - 90 - 10 + 100";
    EXPECT_EQ(leftOf("align_center"), 42) << "7 - 35 - 20 - 10 + 100";
    EXPECT_EQ(leftOf("align_proportional"), 7 - 80 - 20 + 100) << "10 + 70 * (10 / 10)";
    EXPECT_EQ(leftOf("align_left"), 70) << "100 - 20 - 10";
}

TEST(RowPlace, WithoutStretchTheRoomIsLeftOver) {
    const std::string text = Row("width: 100", "a(width: 20); b(width: 30);");
    EXPECT_EQ(LayOutText(text).FrameOf("b"), (Frame{20, 0, 30, 0}));
    EXPECT_EQ(LayOutMirrored(text).FrameOf("b"), (Frame{50, 0, 30, 0}));
}

TEST(RowPlace, AnUnknownHorizontalLeavesTheChildAlone) {
    const std::string text = Row("width: 100", "a(width: 10); b(width: 20, horizontal: 6); c(width: 5);");
    EXPECT_EQ(LayOutText(text).FrameOf("b"), (Frame{0, 0, 20, 0}));
    EXPECT_EQ(LayOutText(text).FrameOf("c").left, 30) << "its room is kept";
    EXPECT_EQ(LayOutMirrored(text).FrameOf("b"), (Frame{0, 0, 20, 0}));
    EXPECT_EQ(LayOutMirrored(text).FrameOf("c").left, 65);
}

TEST(RowLabels, TheFirstLabelJoinsTheColumnAround) {
    const std::string text = "root() { row(placement: place_row, spacing: 4) {"
                             "    a(width: 50, height: 10, label_width: 20); b(width: 10, height: 10); }"
                             "  c(width: 90, height: 10, label_width: 60); }";
    const LaidOut plain = LayOutText(text);
    EXPECT_EQ(plain.FrameOf("root").width, 104) << "60 of labels and 44 behind them";
    EXPECT_EQ(plain.FrameOf("row"), (Frame{0, 0, 104, 10}));
    EXPECT_EQ(plain["row"].labelWidth, 60);
    EXPECT_EQ(plain["a"].labelWidth, 60);
    EXPECT_EQ(plain.FrameOf("a"), (Frame{0, 0, 90, 10}));
    EXPECT_EQ(plain.FrameOf("b"), (Frame{94, 0, 10, 10}));
    const LaidOut mirrored = LayOutMirrored(text);
    EXPECT_EQ(mirrored.FrameOf("a"), (Frame{14, 0, 90, 10}));
    EXPECT_EQ(mirrored.FrameOf("b"), (Frame{0, 0, 10, 10}));
}

TEST(RowLabels, TheLabelColumnStartsAtTheRowsEdge) {
    const LaidOut row = LayOutText(
        Row("margin_left: 2, left_outset: 3", "a(width: 50, height: 10, label_width: 20); b(width: 10);"));
    EXPECT_EQ(row["root"].labelWidth, 25);
    EXPECT_EQ(row["a"].labelWidth, 20);
    EXPECT_EQ(row.FrameOf("a"), (Frame{5, 0, 50, 10}));
}

TEST(RowLabels, MirroredTheLabelGrowsByTwiceTheOutset) {
    const LaidOut row = LayOutMirrored(
        Row("margin_left: 2, left_outset: 3", "a(width: 50, height: 10, label_width: 20); b(width: 10);"));
    // Start is 2 - 3; 25 + 1 is wanted, 6 more than there was.
    EXPECT_EQ(row["a"].labelWidth, 26);
    EXPECT_EQ(row.FrameOf("a"), (Frame{62 - 56 + 1, 0, 56, 10}));
}

TEST(RowLabels, ALabelColumnWithoutWidthStretchesNoLabel) {
    const LaidOut row = LayOutMirrored(Row("left_outset: 3", "a(width: 50, height: 10, label_width: -3);"));
    EXPECT_EQ(row["root"].labelWidth, 0);
    EXPECT_EQ(row["a"].labelWidth, -3) << "not 0 + 3";
    EXPECT_EQ(row.FrameOf("a").width, 50);
}

TEST(RowLabels, ACenterdFirstChildHasNoLabelColumn) {
    const auto labelOf = [](const char* alignment) {
        return LayOutText(Row("", "a(width: 50, label_width: 20, horizontal: " + std::string(alignment) +
                                      ");"))["root"]
            .labelWidth;
    };
    EXPECT_EQ(labelOf("align_center"), 0);
    for (const char* other : {"0", "1", "3", "4", "5", "6"}) EXPECT_EQ(labelOf(other), 20) << other;
}

TEST(RowLabels, OnlyTheFirstChildCounts) {
    const LaidOut row = LayOutText(Row("", "a(width: 5); b(width: 50, label_width: 20);"));
    EXPECT_EQ(row["root"].labelWidth, 0);
    EXPECT_EQ(row["b"].labelWidth, 20);
}

TEST(RowLabels, TheGrownLabelTakesFromTheRoomThatStretches) {
    // The row fills 150, its label grows by 40 to 60: 150 - 100 of room is left for the second.
    const LaidOut dialog =
        LayOutText("root(width: 150) { row(placement: place_row, horizontal: align_fill) {"
                   "    a(width: 50, height: 10, label_width: 20); b(width: 10, horizontal: align_fill); }"
                   "  c(width: 90, height: 10, label_width: 60); }");
    EXPECT_EQ(dialog.FrameOf("row"), (Frame{0, 0, 150, 10}));
    EXPECT_EQ(dialog.FrameOf("a"), (Frame{0, 0, 90, 10}));
    EXPECT_EQ(dialog.FrameOf("b"), (Frame{90, 5, 60, 0}));
}

} // namespace
} // namespace brixen::zeve
