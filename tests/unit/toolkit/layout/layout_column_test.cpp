// Columns: what they measure, and where they put their children from top to bottom.
#include "unit/toolkit/layout/layout_fixture.h"

#include <gtest/gtest.h>

namespace brixen::zeve {
namespace {

TEST(ColumnMeasure, OneChildNeedsNoSpacing) {
    const LaidOut dialog = LayOutText("root(margin: 10, spacing: 8) { a(width: 80, height: 20); }");
    EXPECT_EQ(dialog.FrameOf("root"), (Frame{0, 0, 100, 40}));
    EXPECT_EQ(dialog.FrameOf("a"), (Frame{10, 10, 80, 20}));
}

TEST(ColumnMeasure, HeightsAddUpWithOneSpacingBetweenTwo) {
    const LaidOut dialog = LayOutText(
        "root(margin: 10, spacing: 8) { a(width: 80, height: 20); b(width: 60, height: 30); c(height: 1); }");
    EXPECT_EQ(dialog.FrameOf("root"), (Frame{0, 0, 100, 87}));
    EXPECT_EQ(dialog.FrameOf("b").top, 38);
    EXPECT_EQ(dialog.FrameOf("c").top, 76);
}

TEST(ColumnMeasure, AnExplicitSizeIsOnlyEverRaised) {
    const LaidOut dialog = LayOutText("root(width: 500, height: 5) { a(width: 80, height: 20); }");
    EXPECT_EQ(dialog.FrameOf("root"), (Frame{0, 0, 500, 20}));
}

TEST(ColumnMeasure, AViewWithoutChildrenKeepsWhatItSays) {
    const LaidOut dialog = LayOutText("root(margin: 10, width: -3) { }");
    EXPECT_EQ(dialog.FrameOf("root"), (Frame{0, 0, -3, 0}));
}

TEST(ColumnMeasure, OutsetsBeyondTheMarginsAreAbsorbed) {
    const LaidOut dialog = LayOutText(
        "root(margin_top: 3, margin_bottom: 4, margin_left: 1, margin_right: 2) {"
        "  a(width: 10, height: 10, top_outset: 5, left_outset: 6, bottom_outset: 50);"
        "  b(width: 10, height: 10, top_outset: 90, left_outset: 3, bottom_outset: 10, right_outset: 9); }");
    EXPECT_EQ(dialog["root"].outsets, (Outsets{5, 2, 7, 6}));
    EXPECT_EQ(dialog.FrameOf("root"), (Frame{0, 0, 13, 27}));
    EXPECT_EQ(dialog.FrameOf("a"), (Frame{6, 5, 10, 10}));
    EXPECT_EQ(dialog.FrameOf("b"), (Frame{6, 15, 10, 10}));
}

TEST(ColumnMeasure, ALargerOutsetOfItsOwnStays) {
    const LaidOut dialog = LayOutText("root(outset: 20) { a(width: 10, height: 10, outset: 15); }");
    EXPECT_EQ(dialog["root"].outsets, (Outsets{20, 20, 20, 20}));
}

TEST(ColumnMeasure, TheInsetCountsOnlyForChildrenAtTheLeft) {
    struct Case {
        const char* horizontal;
        int width;
    };
    for (const Case& c :
         {Case{"0", 57}, Case{"align_fill", 57}, Case{"align_left", 57}, Case{"align_center", 50},
          Case{"align_proportional", 50}, Case{"align_right", 50}, Case{"6", 50}}) {
        const LaidOut dialog = LayOutText(
            std::string("root() { a(width: 50, height: 1, inset: 7, horizontal: ") + c.horizontal + "); }");
        EXPECT_EQ(dialog.FrameOf("root").width, c.width) << c.horizontal;
    }
}

TEST(ColumnMeasure, ChildrenThatSayNothingAreCenterdInTheirSlices) {
    const LaidOut dialog = LayOutText("root(height: 27, spacing: 4) { a(height: 8); b(height: 8); }");
    EXPECT_EQ(dialog.FrameOf("a").top, 1);
    EXPECT_EQ(dialog.FrameOf("b").top, 16) << "8 + 4 + 3 of the first slice, then 3 / 2; one pixel is lost";
    EXPECT_EQ(dialog.FrameOf("root").height, 27);
}

TEST(ColumnPlace, CenterdIsTheSameAsSayingNothing) {
    const LaidOut dialog = LayOutText(
        "root(height: 27, spacing: 4, child_vertical: align_center) { a(height: 8); b(height: 8); }");
    EXPECT_EQ(dialog.FrameOf("a").top, 1);
    EXPECT_EQ(dialog.FrameOf("b").top, 16);
}

TEST(ColumnPlace, FillingChildrenGrow) {
    const LaidOut dialog =
        LayOutText("root(height: 60, spacing: 5, margin_top: 3) {"
                   "  a(height: 10, vertical: align_fill); b(height: 12, vertical: align_top);"
                   "  c(height: 8, vertical: align_fill); }");
    // 60 - 10 - 3 of room, 30 used, 17 / 2 for each of two.
    EXPECT_EQ(dialog.FrameOf("a"), (Frame{0, 3, 0, 18}));
    EXPECT_EQ(dialog.FrameOf("b"), (Frame{0, 26, 0, 12}));
    EXPECT_EQ(dialog.FrameOf("c"), (Frame{0, 43, 0, 16}));
}

TEST(ColumnPlace, BottomIsTheRunningPosition) {
    const LaidOut dialog = LayOutText("root(height: 100) { a(height: 10, vertical: align_bottom); b(height: "
                                      "10, vertical: align_bottom); }");
    EXPECT_EQ(dialog.FrameOf("a").top, 0);
    EXPECT_EQ(dialog.FrameOf("b").top, 10);
}

TEST(ColumnPlace, ProportionalChildrenSpreadOverTheHeight) {
    const LaidOut dialog = LayOutText("root(height: 130, child_vertical: align_proportional) {"
                                      "  a(height: 10); b(height: 10); c(height: 10); }");
    // 33 for each; the second starts at 43 and takes 43/87 of its 33, the third at 86 takes 86/87.
    EXPECT_EQ(dialog.FrameOf("a").top, 0);
    EXPECT_EQ(dialog.FrameOf("b").top, 59);
    EXPECT_EQ(dialog.FrameOf("c").top, 119);
}

TEST(ColumnPlace, AProportionalChildAloneStaysAtTheRunningPosition) {
    const LaidOut dialog =
        LayOutText("root(height: 50, margin_top: 7) { a(height: 10, vertical: align_proportional); }");
    EXPECT_EQ(dialog.FrameOf("a").top, 7) << "nothing spent of no way";
}

TEST(ColumnPlace, ProportionalWithNoWayLeftIsTheRunningPosition) {
    const LaidOut dialog = LayOutText("root(height: 100, bottom_outset: 10) {"
                                      "  a(height: 10, vertical: align_top);"
                                      "  b(height: 10, vertical: align_proportional); }");
    EXPECT_EQ(dialog.FrameOf("b").top, 10) << "10 spent of no way";
}

TEST(ColumnPlace, AnUnknownVerticalLeavesTheChildAlone) {
    const LaidOut dialog =
        LayOutText("root(height: 100) { a(height: 10, vertical: align_top); b(height: 20, vertical: 6);"
                   "  c(height: 10, vertical: -1); d(height: 10, vertical: align_top); }");
    EXPECT_EQ(dialog.FrameOf("b"), (Frame{0, 0, 0, 20}));
    EXPECT_EQ(dialog.FrameOf("c"), (Frame{0, 0, 0, 10}));
    EXPECT_EQ(dialog.FrameOf("d").top, 40) << "the room of the others is kept";
}

TEST(ColumnPlace, NoRoomMeansNoExtra) {
    const LaidOut dialog =
        LayOutText("root(placement: place_row, height: 10) { top(height: 50, top_inset: 45);"
                   "  column(vertical: align_fill) { a(height: 30); b(height: 30); } }");
    EXPECT_EQ(dialog.FrameOf("column"), (Frame{0, 45, 0, 60}));
    EXPECT_EQ(dialog.FrameOf("a").top, 0);
    EXPECT_EQ(dialog.FrameOf("b").top, 30);
}

TEST(ColumnPlace, MirroringLeavesTheVerticalAlone) {
    const std::string text =
        "root(height: 130, margin: 4, spacing: 3) { a(height: 10); b(height: 9, vertical: 1);"
        "  c(height: 10, vertical: 3); d(height: 4, vertical: 5); }";
    const LaidOut plain = LayOutText(text), mirrored = LayOutMirrored(text);
    for (const char* view : {"root", "a", "b", "c", "d"}) {
        EXPECT_EQ(plain.FrameOf(view).top, mirrored.FrameOf(view).top) << view;
        EXPECT_EQ(plain.FrameOf(view).height, mirrored.FrameOf(view).height) << view;
    }
}

TEST(ColumnLabels, TheEndsOfTheLabelsLineUp) {
    const LaidOut dialog = LayOutText("root(margin_left: 4) { a(width: 100, height: 1, label_width: 30);"
                                      "  b(width: 90, height: 1, label_width: 50);"
                                      "  c(width: 120, height: 1, inset: 5); }");
    EXPECT_EQ(dialog["root"].labelWidth, 54);
    EXPECT_EQ(dialog.FrameOf("root").width, 129) << "4 + the wider of 50 + 70 and 120 + 5";
    EXPECT_EQ(dialog["a"].labelWidth, 50);
    EXPECT_EQ(dialog.FrameOf("a"), (Frame{4, 0, 120, 1}));
    EXPECT_EQ(dialog["b"].labelWidth, 50);
    EXPECT_EQ(dialog.FrameOf("b"), (Frame{4, 1, 90, 1}));
    EXPECT_EQ(dialog["c"].labelWidth, 0);
    EXPECT_EQ(dialog.FrameOf("c"), (Frame{9, 2, 120, 1}));
}

TEST(ColumnLabels, TheEndsOfTheLabelsLineUpMirrored) {
    const LaidOut dialog = LayOutMirrored("root(margin_left: 4) { a(width: 100, height: 1, label_width: 30);"
                                          "  b(width: 90, height: 1, label_width: 50); }");
    EXPECT_EQ(dialog.FrameOf("root").width, 124);
    EXPECT_EQ(dialog.FrameOf("a"), (Frame{0, 0, 120, 1}));
    EXPECT_EQ(dialog.FrameOf("b"), (Frame{30, 1, 90, 1}));
}

TEST(ColumnLabels, OnlyLabelsAtTheLeftOrFillingMakeAColumn) {
    struct Case {
        const char* horizontal;
        int labelWidth;
    };
    for (const Case& c :
         {Case{"0", 20}, Case{"align_fill", 20}, Case{"align_left", 20}, Case{"align_center", 0},
          Case{"align_proportional", 0}, Case{"align_right", 0}, Case{"9", 0}}) {
        const LaidOut dialog =
            LayOutText(std::string("root() { a(width: 50, height: 1, label_width: 20, horizontal: ") +
                       c.horizontal + "); }");
        EXPECT_EQ(dialog["root"].labelWidth, c.labelWidth) << c.horizontal;
        EXPECT_EQ(dialog.FrameOf("root").width, 50) << c.horizontal;
    }
}

TEST(ColumnLabels, AFillingChildTakesTheLabelWidthWithOrWithoutALabel) {
    const LaidOut dialog =
        LayOutText("root(width: 200, margin: 4) { a(width: 100, height: 1, label_width: 30);"
                   "  b(width: 10, height: 1, horizontal: align_fill); }");
    EXPECT_EQ(dialog["root"].labelWidth, 34);
    EXPECT_EQ(dialog["b"].labelWidth, 30);
    EXPECT_EQ(dialog.FrameOf("b"), (Frame{4, 5, 192, 1}));
}

TEST(ColumnLabels, ALargerLabelWidthOfItsOwnPushesTheChildOut) {
    const LaidOut dialog = LayOutText("root(label_width: 80) { a(width: 100, height: 1, label_width: 30); }");
    EXPECT_EQ(dialog["root"].labelWidth, 80);
    EXPECT_EQ(dialog.FrameOf("root").width, 100) << "measured from the children's labels alone";
    EXPECT_EQ(dialog.FrameOf("a"), (Frame{0, 0, 150, 1}));
}

} // namespace
} // namespace brixen::zeve
