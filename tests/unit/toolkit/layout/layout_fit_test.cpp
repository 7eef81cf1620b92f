// Where columns and offscreen views align a child between their left and right edges.
#include "unit/toolkit/layout/layout_fixture.h"

#include <gtest/gtest.h>

namespace brixen::zeve {
namespace {

// A parent with different edges that holds one child.
std::string Parent(const std::string& placement, const std::string& alignment) {
    return "root(width: 100, margin_left: 3, margin_right: 7, left_outset: 2, placement: " + placement +
           ") { a(width: 20, height: 1, inset: 5, horizontal: " + alignment + "); }";
}

struct Case {
    const char* horizontal;
    int left, width, mirroredLeft;
};

constexpr Case kCases[] = {
    {"0", 10, 20, 79},                  // 5 + 3 + 2; 2 - 20 - 3 + 100
    {"align_left", 10, 20, 79},         //
    {"align_right", 75, 20, 10},        // 100 - 20 - 3 - 2, with the left margin; 5 + 3 + 2
    {"align_center", 42, 20, 42},       // 80 / 2 + 2
    {"align_proportional", 42, 20, 42}, //
    {"align_fill", 5, 90, 5},           // 2 + 3; 100 - 7 - 3
    {"6", 0, 20, 0},                    //
    {"-1", 0, 20, 0},                   //
};

TEST(HorizontalFit, InAColumn) {
    for (const Case& c : kCases) {
        const Frame plain = LayOutText(Parent("place_column", c.horizontal)).FrameOf("a");
        const Frame mirrored = LayOutMirrored(Parent("place_column", c.horizontal)).FrameOf("a");
        EXPECT_EQ(plain, (Frame{c.left, 0, c.width, 1})) << c.horizontal;
        EXPECT_EQ(mirrored, (Frame{c.mirroredLeft, 0, c.width, 1})) << c.horizontal;
    }
}

TEST(HorizontalFit, InAnOffscreenView) {
    for (const Case& c : kCases) {
        const Frame plain = LayOutText(Parent("place_offscreen", c.horizontal)).FrameOf("a");
        const Frame mirrored = LayOutMirrored(Parent("place_offscreen", c.horizontal)).FrameOf("a");
        EXPECT_EQ(plain, (Frame{c.left, 10000, c.width, 1})) << c.horizontal;
        EXPECT_EQ(mirrored, (Frame{c.mirroredLeft, 10000, c.width, 1})) << c.horizontal;
    }
}

TEST(HorizontalFit, CentringTruncatesTowardZero) {
    // 3 narrower than the child, and an outset of 3 for the margin that is missing: -3 / 2 is -1, and 3 more.
    const LaidOut narrow = LayOutText("root(margin_left: -3) { a(width: 20, horizontal: align_center); }");
    EXPECT_EQ(narrow.FrameOf("root").width, 17);
    EXPECT_EQ(narrow.FrameOf("a").left, 2);
    EXPECT_EQ(LayOutText("root(width: 25) { a(width: 20, horizontal: align_center); }").FrameOf("a").left, 2);
}

TEST(HorizontalFit, OffsetsShiftAwayFromTheStart) {
    const std::string text = "root(width: 100) { a(width: 20, height: 5, left_offset: 3, top_offset: 4); }";
    EXPECT_EQ(LayOutText(text).FrameOf("a"), (Frame{3, 4, 20, 5}));
    EXPECT_EQ(LayOutMirrored(text).FrameOf("a"), (Frame{77, 4, 20, 5}));
}

TEST(HorizontalFit, OffsetsMoveNothingElse) {
    const LaidOut dialog =
        LayOutText("root() { a(width: 20, height: 5, top_offset: 40, left_offset: 50); b(height: 5); }");
    EXPECT_EQ(dialog.FrameOf("root"), (Frame{0, 0, 20, 10}));
    EXPECT_EQ(dialog.FrameOf("b").top, 5);
}

TEST(HorizontalFit, TheOffsetOfTheRootIsNeverApplied) {
    EXPECT_EQ(LayOutText("root(left_offset: 9, top_offset: 9);").FrameOf("root"), (Frame{0, 0, 0, 0}));
}

} // namespace
} // namespace brixen::zeve
