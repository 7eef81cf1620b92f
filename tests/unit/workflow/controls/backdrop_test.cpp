#include "workflow/controls/backdrop.h"

#include "unit/workflow/controls/painting_fixture.h"
#include "unit/workflow/controls/pixels.h"
#include "workflow/controls/panel_renderer.h"

#include <gmock/gmock.h>

namespace brixen::pvn::pvn_workflow {
namespace {

using testing::ElementsAre;
using zeve::platform::Extent;
using zeve::platform::Rectangle;
using Pixel = std::vector<int>;

Rectangle AreaOf(Extent bitmap, Extent client) {
    const BackdropPlace place = PlaceBackdrop(bitmap, client);
    EXPECT_FALSE(place.isStretched);
    return place.area;
}

TEST(BackdropPlaces, ABitmapOfTheClientAreasSizeFillsIt) {
    EXPECT_EQ(AreaOf({300, 200}, {300, 200}), (Rectangle{0, 0, 300, 200}));
}

TEST(BackdropPlaces, AnAlmostFittingBitmapIsCentered) {
    EXPECT_EQ(AreaOf({296, 196}, {300, 200}), (Rectangle{2, 2, 298, 198}));
    EXPECT_EQ(AreaOf({299, 197}, {300, 200}), (Rectangle{0, 1, 299, 198})) << "half, rounded down";
    EXPECT_EQ(AreaOf({304, 204}, {300, 200}), (Rectangle{0, 0, 304, 204})) << "0 where it is larger";
    EXPECT_EQ(AreaOf({297, 202}, {300, 200}), (Rectangle{1, 0, 298, 202}));
}

TEST(BackdropPlaces, AnyOtherBitmapIsStretched) {
    for (const Extent bitmap : {Extent{295, 200}, Extent{300, 195}, Extent{305, 200}, Extent{300, 205},
                                Extent{1, 1}, Extent{20'000, 20'000}, Extent{0, 0}}) {
        const BackdropPlace place = PlaceBackdrop(bitmap, {300, 200});
        EXPECT_TRUE(place.isStretched) << bitmap.width << ' ' << bitmap.height;
        EXPECT_EQ(place.area, (Rectangle{0, 0, 300, 200}));
    }
}

class PanelAndBackdrop : public PaintingFixture {
protected:
    zeve::NativeBitmap MakeBackground() {
        const auto bitmap = reinterpret_cast<zeve::NativeBitmap>(std::uintptr_t{0x99});
        platform::GivePixels(bitmap, {.extent = {560, 420}, .pixelBytes = 3, .bytes = {}});
        return bitmap;
    }
};

TEST_F(PanelAndBackdrop, TheFrameHasAMarginABorderAndAnInside) {
    Pixels frame(9, 8, 4, 99);
    FillPanelFrame(frame.Rows());
    const Pixel clear{0, 0, 0, 0}, black{0, 0, 0, 51}, white{217, 217, 217, 217};
    EXPECT_EQ(frame.At(0, 0), clear);
    EXPECT_EQ(frame.At(1, 1), clear);
    EXPECT_EQ(frame.At(8, 7), clear);
    EXPECT_EQ(frame.At(7, 4), clear);
    EXPECT_EQ(frame.At(4, 6), clear);
    EXPECT_EQ(frame.At(2, 2), black);
    EXPECT_EQ(frame.At(6, 5), black);
    EXPECT_EQ(frame.At(4, 2), black);
    EXPECT_EQ(frame.At(2, 4), black);
    EXPECT_EQ(frame.At(3, 3), white);
    EXPECT_EQ(frame.At(5, 4), white);
}

TEST_F(PanelAndBackdrop, TheSmallestFramesAreAllMargin) {
    Pixels one(1, 1, 4, 99);
    FillPanelFrame(one.Rows());
    EXPECT_EQ(one.At(0, 0), (Pixel{0, 0, 0, 0}));
    Pixels opaque(3, 3, 3, 99);
    FillPanelFrame(opaque.Rows());
    EXPECT_EQ(opaque.At(1, 1), (Pixel{99, 99, 99})) << "without alpha there is no frame";
    FillPanelFrame({});
}

TEST_F(PanelAndBackdrop, ThePanelIsTheGroundTheBackgroundAndTheFrame) {
    const zeve::NativeBitmap background = MakeBackground();
    const PanelRenderer panel(background, {30, 20}, 128);
    const platform::OwnedBitmap bitmap = panel.Render(0);
    EXPECT_THAT(Names(), ElementsAre("MakeBitmap", "BitmapDrawing", "SetLayout", "FillColor", "DrawBitmap",
                                     "MakeBitmap", "BlendBitmap"));
    EXPECT_THAT(NumbersOf("FillColor"), ElementsAre(0, 0, 30, 20, 0x8080FF));
    EXPECT_THAT(NumbersOf("DrawBitmap"), ElementsAre(0, 0, 30, 20, Number(background)));
    EXPECT_THAT(NumbersOf("BlendBitmap"), ElementsAre(0, 0, 30, 20, testing::_, 128));
    EXPECT_EQ(platform::ExtentOf(bitmap.get()).width, 30);
    EXPECT_EQ(Recorder().bitmaps.size(), 2u) << "the frame's bitmap is gone, the background stays";
}

TEST_F(PanelAndBackdrop, ThePanelIsRenderedAgainAtItsNewSize) {
    PanelRenderer panel(nullptr, {10, 10}, 0);
    const platform::OwnedBitmap small = panel.Render(0);
    panel.SetSize({300, 200});
    const platform::OwnedBitmap large = panel.Render(0);
    EXPECT_EQ(platform::ExtentOf(small.get()).width, 10);
    EXPECT_EQ(platform::ExtentOf(large.get()).height, 200);
}

TEST_F(PanelAndBackdrop, WithoutMemoryThereIsNoPanel) {
    Recorder().refuseBitmap = true;
    EXPECT_FALSE(PanelRenderer(nullptr, {10, 10}, 0).Render(0));
    Recorder().refuseBitmap = false;
    EXPECT_FALSE(PanelRenderer(nullptr, {0, 10}, 0).Render(0));
}

TEST_F(PanelAndBackdrop, ABackdropIsRenderedForTheClientArea) {
    PanelRenderer panel(MakeBackground(), kFirstPanelSize, kNoFrame);
    const platform::OwnedBitmap bitmap = RenderBackdrop(panel, MakeDialog());
    EXPECT_EQ(platform::ExtentOf(bitmap.get()).width, 300);
    EXPECT_EQ(platform::ExtentOf(bitmap.get()).height, 200);
    EXPECT_THAT(NumbersOf("SetLayout"), ElementsAre(0));
    EXPECT_EQ(NumbersOf("BlendBitmap").back(), 0) << "the frame does not show";
}

TEST_F(PanelAndBackdrop, TheBackdropOfAMirroredWindowIsReflected) {
    PanelRenderer panel(MakeBackground(), kFirstPanelSize, kNoFrame);
    const platform::OwnedBitmap bitmap = RenderBackdrop(panel, MakeDialog(platform::kMirroredWindow));
    EXPECT_THAT(NumbersOf("SetLayout"), ElementsAre(platform::kLayoutMirrored));
}

TEST_F(PanelAndBackdrop, ABackdropIsDrawnAsItIsOrStretched) {
    const platform::OwnedBitmap bitmap = platform::MakeBitmap({298, 200});
    DrawBackdrop(Device(), {0, 0, 300, 200}, bitmap.get());
    EXPECT_THAT(NumbersOf("DrawBitmap"), ElementsAre(1, 0, 299, 200, Number(bitmap.get())));
    DrawBackdrop(Device(), {0, 0, 400, 200}, bitmap.get());
    EXPECT_THAT(NumbersOf("StretchBitmap"), ElementsAre(0, 0, 400, 200, Number(bitmap.get())));
}

TEST_F(PanelAndBackdrop, ARenderedBackdropIsNotReflectedAgain) {
    Recorder().layouts[Device()] = platform::kLayoutMirrored;
    const platform::OwnedBitmap bitmap = platform::MakeBitmap({300, 200});
    DrawBackdrop(Device(), {0, 0, 300, 200}, bitmap.get());
    EXPECT_THAT(Names(), ElementsAre("MakeBitmap", "SetLayout", "DrawBitmap", "SetLayout"));
    EXPECT_EQ(platform::PaintingCallsOf("SetLayout")[0].numbers[0], platform::kLayoutKeepsBitmaps);
    EXPECT_EQ(platform::LayoutOf(Device()), platform::kLayoutMirrored) << "as before";
}

TEST_F(PanelAndBackdrop, NothingIsDrawnWithoutABackdrop) {
    DrawBackdrop(Device(), {0, 0, 300, 200}, nullptr);
    EXPECT_TRUE(Recorder().calls.empty());
}

TEST_F(PanelAndBackdrop, TheBrushContinuesTheBackdropBehindAControl) {
    const zeve::NativeWindow dialog = MakeDialog();
    const zeve::NativeWindow control = MakeControl(dialog, 40, 50, 100, 79);
    const auto brush = reinterpret_cast<zeve::NativeBrush>(std::uintptr_t{0x55});
    EXPECT_EQ(BrushBehind(control, Device(), dialog, brush), brush);
    EXPECT_THAT(NumbersOf("SetBrushOrigin"), ElementsAre(-40, -50));
    EXPECT_EQ(platform::PaintingCallsOf("SetBrushOrigin")[0].device, Device());
}

TEST_F(PanelAndBackdrop, AHighControlIsWhite) {
    const zeve::NativeWindow dialog = MakeDialog();
    const auto brush = reinterpret_cast<zeve::NativeBrush>(std::uintptr_t{0x55});
    EXPECT_EQ(BrushBehind(MakeControl(dialog, 0, 0, 10, 80), Device(), dialog, brush),
              platform::StockBrush(0));
    EXPECT_EQ(BrushBehind(MakeControl(dialog, 0, 0, 10, 79), Device(), dialog, nullptr), nullptr);
}

} // namespace
} // namespace brixen::pvn::pvn_workflow
