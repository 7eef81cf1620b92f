#include "workflow/controls/pixel_blend.h"

#include "unit/workflow/controls/pixels.h"

#include <gtest/gtest.h>

namespace brixen::pvn::pvn_workflow {
namespace {

using Pixel = std::vector<int>;

TEST(PixelBlend, PremultipliedRoundsDown) {
    EXPECT_EQ(Premultiplied(255, 255), 255);
    EXPECT_EQ(Premultiplied(255, 51), 51);
    EXPECT_EQ(Premultiplied(243, 203), 193); // 49329 / 255 = 193.4
    EXPECT_EQ(Premultiplied(116, 157), 71);  // 18212 / 255 = 71.4
    EXPECT_EQ(Premultiplied(27, 203), 21);   // 5481 / 255 = 21.5
    EXPECT_EQ(Premultiplied(200, 0), 0);
}

TEST(PixelBlend, BlendedWeighsSourceAndTarget) {
    EXPECT_EQ(Blended(10, 200, 255), 10);
    EXPECT_EQ(Blended(10, 200, 0), 200);
    EXPECT_EQ(Blended(255, 0, 128), 128);
    EXPECT_EQ(Blended(100, 50, 100), 69); // (10000 + 7750) / 255 = 69.6
    EXPECT_EQ(Blended(255, 255, 77), 255);
}

TEST(PixelBlend, APictureWithAlphaIsBlended) {
    Pixels target(2, 1, 4, 50), picture(1, 1, 4);
    picture.Set(0, 0, {100, 200, 0, 100});
    LayBlended(target.Rows(), picture.Rows(), 1, 0);
    EXPECT_EQ(target.At(0, 0), (Pixel{50, 50, 50, 50}));
    EXPECT_EQ(target.At(1, 0), (Pixel{69, 108, 30, 50})) << "the target's fourth byte stays";
}

TEST(PixelBlend, APictureOf24BitsIsOpaque) {
    Pixels target(1, 1, 4, 50), picture(1, 1, 3);
    picture.Set(0, 0, {1, 2, 3});
    LayBlended(target.Rows(), picture.Rows(), 0, 0);
    EXPECT_EQ(target.At(0, 0), (Pixel{1, 2, 3, 50}));
}

TEST(PixelBlend, OnlyWhiteIsLeftOut) {
    Pixels target(4, 1, 4, 9), picture(4, 1, 4);
    picture.Set(0, 0, {255, 255, 255, 255});
    picture.Set(1, 0, {254, 255, 255, 0});
    picture.Set(2, 0, {255, 254, 255, 7});
    picture.Set(3, 0, {255, 255, 254, 255});
    LayWithoutWhite(target.Rows(), picture.Rows(), 0, 0);
    EXPECT_EQ(target.At(0, 0), (Pixel{9, 9, 9, 9}));
    EXPECT_EQ(target.At(1, 0), (Pixel{254, 255, 255, 9})) << "alpha means nothing to a label";
    EXPECT_EQ(target.At(2, 0), (Pixel{255, 254, 255, 9}));
    EXPECT_EQ(target.At(3, 0), (Pixel{255, 255, 254, 9}));
}

TEST(PixelBlend, RowsAreFoundByTheirPitchInBothDirections) {
    Pixels picture(1, 2, 3, 0, 5); // rows of 8 bytes
    picture.Set(0, 0, {1, 1, 1});
    picture.Set(0, 1, {2, 2, 2});
    Pixels target(1, 2, 4);
    LayBlended(target.Rows(), picture.Rows(), 0, 0);
    EXPECT_EQ(target.At(0, 0), (Pixel{1, 1, 1, 0}));
    EXPECT_EQ(target.At(0, 1), (Pixel{2, 2, 2, 0}));
    LayBlended(target.Rows(), picture.RowsUpwards(), 0, 0);
    EXPECT_EQ(target.At(0, 0), (Pixel{2, 2, 2, 0}));
    EXPECT_EQ(target.At(0, 1), (Pixel{1, 1, 1, 0}));
}

// Lays a picture of 3 by 3 pixels, numbered from 1, on a target of 3 by 3 and returns the target's blue
// bytes.
std::vector<int> LaidAt(std::int32_t x, std::int32_t y, bool blended) {
    Pixels target(3, 3, 4), picture(3, 3, 4);
    for (int i = 0; i < 9; ++i) picture.Set(i % 3, i / 3, {i + 1, 0, 0, 255});
    (blended ? LayBlended : LayWithoutWhite)(target.Rows(), picture.Rows(), x, y);
    std::vector<int> blue;
    for (int i = 0; i < 9; ++i) blue.push_back(target.At(i % 3, i / 3)[0]);
    return blue;
}

TEST(PixelBlend, PixelsOutsideTheTargetAreLeftOut) {
    for (const bool blended : {true, false}) {
        EXPECT_EQ(LaidAt(0, 0, blended), (Pixel{1, 2, 3, 4, 5, 6, 7, 8, 9}));
        EXPECT_EQ(LaidAt(-1, -2, blended), (Pixel{8, 9, 0, 0, 0, 0, 0, 0, 0}));
        EXPECT_EQ(LaidAt(2, 1, blended), (Pixel{0, 0, 0, 0, 0, 1, 0, 0, 4}));
        EXPECT_EQ(LaidAt(3, 0, blended), Pixel(9));
        EXPECT_EQ(LaidAt(0, 3, blended), Pixel(9));
        EXPECT_EQ(LaidAt(-3, 0, blended), Pixel(9));
        EXPECT_EQ(LaidAt(0, -3, blended), Pixel(9));
        EXPECT_EQ(LaidAt(INT32_MAX, INT32_MAX, blended), Pixel(9));
        EXPECT_EQ(LaidAt(INT32_MIN, INT32_MIN, blended), Pixel(9));
    }
}

TEST(PixelBlend, NothingIsLaidWithoutPixels) {
    Pixels pixels(1, 1, 4, 7);
    LayBlended(pixels.Rows(), {}, 0, 0);
    LayWithoutWhite(pixels.Rows(), {}, 0, 0);
    LayBlended({}, pixels.Rows(), 0, 0);
    LayWithoutWhite({}, pixels.Rows(), 0, 0);
    EXPECT_EQ(pixels.At(0, 0), (Pixel{7, 7, 7, 7}));
}

// The rows are described, not there: only what is inside the target may be read.
TEST(PixelBlend, AVastPictureIsReadOnlyWhereItIsSeen) {
    Pixels target(2, 2, 4), seen(2, 2, 4, 40);
    platform::PixelRows vast = seen.Rows();
    vast.width = vast.height = 20'000;
    LayBlended(target.Rows(), vast, 0, 0);
    EXPECT_EQ(target.At(1, 1)[0], 6); // 40 × 40 / 255
    LayWithoutWhite(target.Rows(), vast, 0, 0);
    EXPECT_EQ(target.At(1, 1)[0], 40);
}

} // namespace
} // namespace brixen::pvn::pvn_workflow
