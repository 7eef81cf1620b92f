// Offscreen views: pages on top of each other, far below until their boxes are made.
#include "unit/toolkit/layout/layout_fixture.h"

#include <gtest/gtest.h>

namespace brixen::zeve {
namespace {

TEST(Offscreen, PagesGetTheSameFrame) {
    const LaidOut tabs = LayOutText("root(placement: place_offscreen, margin: 5, spacing: 100) {"
                                    "  a(width: 50, height: 20); b(width: 30, height: 60); }");
    EXPECT_EQ(tabs.FrameOf("root"), (Frame{0, 0, 60, 70}));
    EXPECT_EQ(tabs.FrameOf("a"), (Frame{5, 10005, 50, 60}));
    EXPECT_EQ(tabs.FrameOf("b"), (Frame{5, 10005, 50, 60}));
}

TEST(Offscreen, AnExplicitChildAlignmentReplacesFilling) {
    const LaidOut tabs =
        LayOutText("root(placement: place_offscreen, width: 90, child_horizontal: align_left) {"
                   "  a(width: 50, height: 20); b(width: 30, horizontal: align_right); }");
    EXPECT_EQ(tabs.FrameOf("a"), (Frame{0, 10000, 50, 20}));
    EXPECT_EQ(tabs.FrameOf("b"), (Frame{60, 10000, 30, 20}));
}

TEST(Offscreen, AllOutsetsBeyondTheMarginsAreAbsorbed) {
    const LaidOut tabs = LayOutText(
        "root(placement: place_offscreen, margin_left: 1, margin_top: 2, margin_right: 3, margin_bottom: 4) {"
        "  a(left_outset: 10, top_outset: 10); b(left_outset: 5, right_outset: 10, bottom_outset: 10);"
        "  c(outset: 7); }");
    EXPECT_EQ(tabs["root"].outsets, (Outsets{9, 8, 7, 6}));
    EXPECT_EQ(tabs.FrameOf("a"), (Frame{10, 10010, 0, 0})) << "8 of outset and 2 of margin at the top";
}

TEST(Offscreen, LabelsAreNotLinedUp) {
    const LaidOut tabs =
        LayOutText("root(placement: place_offscreen, label_width: 70, child_horizontal: align_left) {"
                   "  a(width: 50, label_width: 20); b(width: 30, horizontal: align_fill); }");
    EXPECT_EQ(tabs["root"].labelWidth, 70);
    EXPECT_EQ(tabs["a"].labelWidth, 20);
    EXPECT_EQ(tabs.FrameOf("a").width, 50);
    EXPECT_EQ(tabs["b"].labelWidth, 0);
}

TEST(Offscreen, OnlyTheOutermostIsFarAway) {
    const LaidOut tabs =
        LayOutText("root() { outer(placement: place_offscreen) {"
                   "  inner(placement: place_offscreen, margin: 2) { a(width: 10, height: 10); } } }");
    EXPECT_EQ(tabs.FrameOf("outer"), (Frame{0, 0, 14, 14}));
    EXPECT_EQ(tabs.FrameOf("inner"), (Frame{0, 10000, 14, 14}));
    EXPECT_EQ(tabs.FrameOf("a"), (Frame{2, 2, 10, 10}));
}

TEST(Offscreen, WhatLiesBetweenKeepsTheInnerNear) {
    const LaidOut tabs =
        LayOutText("root(placement: place_offscreen) { column() { row(placement: place_row) {"
                   "  inner(placement: place_offscreen) { a(width: 10, height: 10); } } } }");
    EXPECT_EQ(tabs.FrameOf("column").top, 10000);
    EXPECT_EQ(tabs.FrameOf("row").top, 0);
    EXPECT_EQ(tabs.FrameOf("a").top, 0);
}

TEST(Offscreen, TwoOutermostViewsAreBothFarAway) {
    const LaidOut tabs = LayOutText("root() { x(placement: place_offscreen) { a(height: 10); }"
                                    "  y(placement: place_offscreen) { b(height: 10); } }");
    EXPECT_EQ(tabs.FrameOf("y").top, 10);
    EXPECT_EQ(tabs.FrameOf("a").top, 10000);
    EXPECT_EQ(tabs.FrameOf("b").top, 10000);
}

TEST(Offscreen, APlacementGivenByTheBlockCountsAsTheViewsOwn) {
    const LaidOut tabs = LayOutText("root() { placement = place_offscreen; x() { y() { a(height: 10); } } }");
    EXPECT_EQ(tabs.FrameOf("x").top, 0);
    EXPECT_EQ(tabs.FrameOf("y").top, 10000);
    EXPECT_EQ(tabs.FrameOf("a").top, 0);
}

TEST(Offscreen, PlacementsCompareOnTheirLow32Bits) {
    const LaidOut tabs = LayOutText("big = 65536 * 65536; root(placement: big + place_offscreen, margin: 1) {"
                                    "  inner(placement: big + place_offscreen) { a(height: 10); }"
                                    "  row(placement: big + place_row) { b(width: 10); c(width: 10); } }");
    EXPECT_EQ(tabs.FrameOf("inner"), (Frame{1, 10001, 20, 10}));
    EXPECT_EQ(tabs.FrameOf("a").top, 0);
    EXPECT_EQ(tabs.FrameOf("c").left, 10);
}

TEST(Offscreen, OffsetsApplyToPagesToo) {
    const std::string text =
        "root(placement: place_offscreen) { a(width: 10, left_offset: 3, top_offset: -1); }";
    EXPECT_EQ(LayOutText(text).FrameOf("a"), (Frame{3, 9999, 10, 0}));
    EXPECT_EQ(LayOutMirrored(text).FrameOf("a"), (Frame{-3, 9999, 10, 0}));
}

} // namespace
} // namespace brixen::zeve
