#include "workflow/platform/painting.h"

#include "workflow/platform/resource_platform.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace brixen::pvn::pvn_workflow::platform {
namespace {

TEST(Painting, ANewBitmapIsClearAndOf32Bits) {
    const OwnedBitmap bitmap = MakeBitmap({5, 3});
    ASSERT_TRUE(bitmap);
    EXPECT_EQ(ExtentOf(bitmap.get()).width, 5);
    EXPECT_EQ(ExtentOf(bitmap.get()).height, 3);
    const PixelRows rows = PixelsOf(bitmap.get());
    EXPECT_EQ(rows.width, 5);
    EXPECT_EQ(rows.height, 3);
    EXPECT_EQ(rows.pixelBytes, 4);
    for (std::int32_t y = 0; y < rows.height; ++y) {
        EXPECT_TRUE(std::ranges::all_of(rows.Row(y), [](std::byte byte) { return byte == std::byte{0}; }));
    }
}

TEST(Painting, ABitmapWithoutAnAreaIsNone) {
    EXPECT_FALSE(MakeBitmap({0, 3}));
    EXPECT_FALSE(MakeBitmap({3, -1}));
    EXPECT_EQ(ExtentOf(nullptr).width, 0);
    EXPECT_EQ(PixelsOf(nullptr).top, nullptr);
}

TEST(Painting, ADeviceOnABitmapIsNotMirroredUntilItIsSet) {
    const OwnedBitmap bitmap = MakeBitmap({4, 4});
    {
        const BitmapDrawing drawing(bitmap.get());
        ASSERT_NE(drawing.Device(), nullptr);
        EXPECT_EQ(LayoutOf(drawing.Device()), 0u);
        SetLayout(drawing.Device(), kLayoutMirrored);
        EXPECT_EQ(LayoutOf(drawing.Device()), kLayoutMirrored);
    }
}

TEST(Painting, ADeviceIsReadAndWrittenInWhole) {
    const OwnedBitmap bitmap = MakeBitmap({4, 4});
    {
        const BitmapDrawing drawing(bitmap.get());
        DevicePixels pixels(drawing.Device(), {1, 1, 4, 3});
        EXPECT_EQ(pixels.Rows().width, 3);
        EXPECT_EQ(pixels.Rows().height, 2);
        EXPECT_EQ(pixels.Rows().pixelBytes, 4);
        pixels.Write();
    }
}

TEST(Painting, NothingIsDoneWithoutADevice) {
    FillArea(nullptr, {0, 0, 4, 4}, Color{0xFF});
    FillArea(nullptr, {0, 0, 4, 4}, StockBrush(kStockWhiteBrush));
    DrawRoundFrame(nullptr, {0, 0, 4, 4}, 3, 0, 0);
    SetTransparentText(nullptr, 0);
    SetBrushOrigin(nullptr, 0, 0);
    SetLayout(nullptr, kLayoutMirrored);
    DrawBitmap(nullptr, {0, 0, 4, 4}, nullptr);
    StretchBitmap(nullptr, {0, 0, 4, 4}, nullptr);
    BlendBitmap(nullptr, {0, 0, 4, 4}, nullptr, 255);
    EXPECT_EQ(LayoutOf(nullptr), 0u);
    EXPECT_FALSE(MakePatternBrush(nullptr));
    EXPECT_EQ(BitmapDrawing(nullptr).Device(), nullptr);
    EXPECT_EQ(DevicePixels(nullptr, {0, 0, 4, 4}).Rows().top, nullptr);
    const Painting painting(nullptr);
    EXPECT_EQ(painting.Device(), nullptr);
    EXPECT_EQ(painting.Area().right, 0);
}

TEST(Painting, APatternBrushIsMadeFromABitmapAndDeleted) {
    const OwnedBitmap bitmap = MakeBitmap({8, 8});
    EXPECT_TRUE(MakePatternBrush(bitmap.get()));
    EXPECT_NE(StockBrush(kStockWhiteBrush), nullptr);
}

} // namespace
} // namespace brixen::pvn::pvn_workflow::platform
