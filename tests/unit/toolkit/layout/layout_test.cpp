// What concerns the tree as a whole: direction, order, unknown placements, numbers beyond 32 bits.
#include "unit/toolkit/layout/layout_fixture.h"

#include "toolkit/layout/pixel_sum.h"

#include <gtest/gtest.h>

#include <limits>

namespace brixen::zeve {
namespace {

constexpr std::int64_t kLargest = std::numeric_limits<std::int32_t>::max();
constexpr std::int64_t kSmallest = std::numeric_limits<std::int32_t>::min();

TEST(Direction, LeftToRightMirrorsNothing) {
    EXPECT_EQ(LayOutText("root(width: 100) { a(width: 20); }").FrameOf("a").left, 0);
    EXPECT_EQ(LayOutMirrored("root(width: 100) { a(width: 20); }").FrameOf("a").left, 80);
}

TEST(Direction, AlwaysLeftToRightAtTheRootTurnsAllMirroringOff) {
    const LaidOut dialog = LayOutMirrored(
        "root(width: 100, alwaysL2R: true) { mid(width: 60) { a(width: 20, left_offset: 1); } }");
    EXPECT_EQ(dialog.FrameOf("mid").left, 0);
    EXPECT_EQ(dialog.FrameOf("a").left, 1);
}

TEST(Direction, AlwaysLeftToRightElsewhereHoldsForTheDirectChildren) {
    const LaidOut dialog = LayOutMirrored(
        "root(width: 100) { mid(width: 60, alwaysL2R: true) { inner(width: 40, left_offset: 5) {"
        "  a(width: 20, left_offset: 1); } } }");
    EXPECT_EQ(dialog.FrameOf("mid").left, 40);
    EXPECT_EQ(dialog.FrameOf("inner").left, 5);
    EXPECT_EQ(dialog.FrameOf("a").left, 19);
}

TEST(Direction, AnInheritedAlwaysLeftToRightReachesAllOfTheBlock) {
    const LaidOut dialog = LayOutMirrored(
        "root(width: 100) { alwaysL2R = 2; mid(width: 60) { inner(width: 40) { a(width: 20); } } }");
    EXPECT_EQ(dialog.FrameOf("mid").left, 40);
    EXPECT_EQ(dialog.FrameOf("inner").left, 0);
    EXPECT_EQ(dialog.FrameOf("a").left, 0);
}

TEST(Reverse, TurnsTheChildrenForPlacingAndForMaking) {
    const LaidOut dialog = LayOutText(
        "root(reverse: true, spacing: 1) { a(height: 10) { x(); y(); } b(height: 20); c(height: 30); }");
    EXPECT_EQ(dialog.Order(), "root c b a x y");
    EXPECT_EQ(dialog.FrameOf("c").top, 0);
    EXPECT_EQ(dialog.FrameOf("b").top, 31);
    EXPECT_EQ(dialog.FrameOf("a").top, 52);
}

TEST(Reverse, DecidesWhoIsFirst) {
    const LaidOut row = LayOutText("root(placement: place_row, reverse: true) {"
                                   "  a(width: 10, left_outset: 4); b(width: 20, left_outset: 9); }");
    EXPECT_EQ(row["root"].outsets.left, 9);
    EXPECT_EQ(row.FrameOf("a").left, 29);
}

TEST(Reverse, ChangesNothingWithoutChildren) {
    EXPECT_EQ(LayOutText("root(reverse: true, width: 7);").FrameOf("root"), (Frame{0, 0, 7, 0}));
}

TEST(Reverse, HoldsForAnUnknownPlacementToo) {
    EXPECT_EQ(LayOutText("root(placement: 7, reverse: true) { a(); b(); }").Order(), "root b a");
}

TEST(UnknownPlacement, MeasuresNothingAndPlacesAColumn) {
    const LaidOut dialog = LayOutText("root(placement: 7, width: 50, height: 40, margin_left: 3) {"
                                      "  a(width: 90, height: 10, left_outset: 9, label_width: 5);"
                                      "  b(height: 10, horizontal: align_fill); }");
    EXPECT_EQ(dialog["root"].outsets, (Outsets{}));
    EXPECT_EQ(dialog["root"].labelWidth, 0);
    EXPECT_EQ(dialog.FrameOf("root"), (Frame{0, 0, 50, 40}));
    // No sum was made, so all of 40 is room: 20 for each.
    EXPECT_EQ(dialog.FrameOf("a"), (Frame{3, 10, 90, 10}));
    EXPECT_EQ(dialog.FrameOf("b"), (Frame{3, 40, 47, 10}));
}

TEST(UnknownPlacement, StillMeasuresWhatLiesBelow) {
    EXPECT_EQ(LayOutText("root(placement: -1) { mid() { a(width: 9, height: 8); } }").FrameOf("mid"),
              (Frame{0, 0, 9, 8}));
}

TEST(LargeNumbers, SumsAreCutOnceToTheirLow32Bits) {
    const LaidOut row = LayOutText("root(placement: place_row) { a(width: 2147483647); b(width: 2147483647);"
                                   "  c(width: 2147483647); d(width: 10); }");
    EXPECT_EQ(row.FrameOf("root").width, 3 * kLargest + 10 - (std::int64_t{1} << 33));
    EXPECT_EQ(row.FrameOf("c").left, -2) << "twice the largest, cut";
    EXPECT_EQ(row.FrameOf("d").left, kLargest - 2);
}

TEST(LargeNumbers, AMiddleIsTakenBeforeTheCut) {
    const LaidOut column =
        LayOutText("root(width: 2147483647) { a(width: 0 - 2147483647, horizontal: align_center); }");
    EXPECT_EQ(column.FrameOf("a").left, kLargest) << "twice the largest, by 2";
}

TEST(LargeNumbers, ManyExtremesPassThrough) {
    const std::string children =
        "a(width: big, height: small, inset: big, outset: small, left_offset: small);"
        "b(width: small, height: big, top_inset: small, outset: big, top_offset: big);";
    for (const char* placement : {"0", "1", "2", "7"}) {
        for (const char* alignment : {"0", "1", "2", "3", "4", "5", "6"}) {
            const std::string head = std::string("big = 2147483647; small = 0 - big - 1; root(placement: ") +
                                     placement + ", child_horizontal: " + alignment +
                                     ", child_vertical: " + alignment +
                                     ", spacing: big, margin: small, label_width: big) {";
            EXPECT_EQ(LayOutText(head + children + "}").Views().size(), 3u);
            EXPECT_EQ(LayOutMirrored(head + children + "}").Views().size(), 3u);
        }
    }
}

TEST(LargeNumbers, AttributesAreCutToo) {
    EXPECT_EQ(LayOutText("root(width: 65536 * 65536 + 5, height: unknown + 1);").FrameOf("root"),
              (Frame{0, 0, 5, kSmallest}))
        << "what is undefined is the most negative number";
}

TEST(ProportionalPosition, RoundsHalfAwayFromZero) {
    struct Case {
        PixelSum running, extra, spent, way, position;
    };
    const Case cases[] = {
        {0, 10, 0, 7, 0},       // nothing spent
        {3, 10, 1, 4, 6},       // 5.5
        {3, 10, 1, 5, 5},       // 5
        {-8, 10, 1, 4, -6},     // -5.5
        {-3, 10, 1, 4, -1},     // -0.5
        {-13, 10, 1, 100, -13}, // -12.9
        {4, 3, -1, 2, 3},       // 2.5
        {0, 3, 1, -2, -2},      // -1.5
        {5, 0, 1, 0, 5},        // 0 * infinity
        {5, 9, 0, 0, 5},        // 0 / 0
        {5, 9, 1, 0, 5},        // infinity
        {5, 9, -1, 0, 5},       // minus infinity
        {7, 2147483640, 1, 1, 2147483647},
        {8, 2147483640, 1, 1, 8}, // one beyond 32 bits
        {-8, -2147483640, 1, 1, -2147483648},
        {-9, -2147483640, 1, 1, -9}, // one beyond
        {kLargest * 3, 1, 0, 1, kLargest * 3},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(ProportionalPosition(c.running, c.extra, c.spent, c.way), c.position)
            << c.running << " + " << c.extra << " * " << c.spent << " / " << c.way;
    }
}

} // namespace
} // namespace brixen::zeve
