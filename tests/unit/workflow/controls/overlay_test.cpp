#include "workflow/controls/overlay.h"

#include "unit/workflow/controls/painting_fixture.h"
#include "unit/workflow/controls/pixels.h"

#include <gmock/gmock.h>

namespace brixen::pvn::pvn_workflow {
namespace {

using testing::ElementsAre;
using zeve::platform::Rectangle;

constexpr Rectangle kClient{0, 0, 300, 200};

class Overlay : public PaintingFixture {
protected:
    static zeve::NativeBitmap Bitmap(int number, zeve::platform::Extent extent, std::int32_t pixelBytes,
                                     std::uint8_t byte) {
        const auto bitmap = reinterpret_cast<zeve::NativeBitmap>(static_cast<std::uintptr_t>(number));
        const auto rowBytes =
            static_cast<std::size_t>((std::ptrdiff_t{extent.width} * pixelBytes + 3) / 4 * 4);
        platform::GivePixels(bitmap, {.extent = extent,
                                      .pixelBytes = pixelBytes,
                                      .isBottomUp = true,
                                      .bytes = std::vector(rowBytes * static_cast<std::size_t>(extent.height),
                                                           std::byte{byte})});
        return bitmap;
    }

    // The blue byte that was written at a place of the client area, whose part begins at `part`.
    static int Written(std::int32_t x, std::int32_t y) {
        const auto part = platform::PaintingCallsOf("WritePixels").at(0).numbers;
        const auto index = (y - part[1]) * (part[2] - part[0]) + x - part[0];
        return std::to_integer<int>(Recorder().written.at(static_cast<std::size_t>(index) * 4));
    }
};

TEST_F(Overlay, TheLogoIsAtTheTopRight) {
    EXPECT_EQ(LogoArea({44, 40}, {300, 200}), (Rectangle{249, 10, 293, 50}));
}

TEST_F(Overlay, TheLabelIsAtTheTopOnTheSideWhereReadingBegins) {
    EXPECT_EQ(LabelArea({176, 56}, {300, 200}, false), (Rectangle{0, 0, 176, 56}));
    EXPECT_EQ(LabelArea({176, 56}, {300, 200}, true), (Rectangle{124, 0, 300, 56}));
}

TEST_F(Overlay, TheDeviceIsReadOnceAndWrittenOnceForLogoAndLabel) {
    Recorder().surface = std::byte{50};
    DrawOverlay(Device(), kClient, {Bitmap(1, {44, 44}, 4, 100), Bitmap(2, {176, 56}, 3, 9)});
    EXPECT_THAT(Names(), ElementsAre("SetLayout", "ReadPixels", "MakeBitmap", "WritePixels", "SetLayout"));
    EXPECT_THAT(NumbersOf("ReadPixels"), ElementsAre(0, 0, 293, 56));
    EXPECT_THAT(NumbersOf("WritePixels"), ElementsAre(0, 0, 293, 56));
    EXPECT_EQ(Written(0, 0), 9) << "label";
    EXPECT_EQ(Written(175, 55), 9);
    EXPECT_EQ(Written(176, 0), 50) << "between them";
    EXPECT_EQ(Written(249, 9), 50);
    EXPECT_EQ(Written(249, 10), 69) << "logo: (100 × 100 + 50 × 155) / 255";
    EXPECT_EQ(Written(292, 53), 69);
    EXPECT_EQ(Written(292, 54), 50);
}

TEST_F(Overlay, TheLabelLiesOverTheLogo) {
    DrawOverlay(Device(), kClient, {Bitmap(1, {44, 44}, 3, 100), Bitmap(2, {300, 56}, 3, 9)});
    EXPECT_EQ(Written(249, 10), 9);
}

TEST_F(Overlay, InAMirroredDeviceBothAreAtTheRightAndNotReflected) {
    Recorder().layouts[Device()] = platform::kLayoutMirrored;
    DrawOverlay(Device(), kClient, {nullptr, Bitmap(2, {176, 56}, 3, 9)});
    EXPECT_THAT(NumbersOf("ReadPixels"), ElementsAre(124, 0, 300, 56));
    EXPECT_EQ(Written(124, 0), 9);
    const auto layouts = platform::PaintingCallsOf("SetLayout");
    ASSERT_EQ(layouts.size(), 2u);
    EXPECT_EQ(layouts[0].numbers[0], platform::kLayoutKeepsBitmaps);
    EXPECT_EQ(layouts[1].numbers[0], platform::kLayoutMirrored);
    Recorder().calls.clear();
    DrawOverlay(Device(), kClient, {Bitmap(1, {44, 44}, 4, 100), nullptr});
    EXPECT_THAT(NumbersOf("ReadPixels"), ElementsAre(249, 10, 293, 54));
    EXPECT_EQ(Written(249, 10), 39); // 100 × 100 / 255
    EXPECT_EQ(Written(292, 53), 39);
}

TEST_F(Overlay, OnlyWhatIsInTheClientAreaIsReadAndWritten) {
    DrawOverlay(Device(), {0, 0, 40, 30}, {Bitmap(1, {44, 44}, 4, 100), Bitmap(2, {176, 56}, 3, 9)});
    EXPECT_THAT(NumbersOf("ReadPixels"), ElementsAre(0, 0, 40, 30));
    Recorder().calls.clear();
    DrawOverlay(Device(), {0, 0, 40, 8}, {Bitmap(1, {44, 44}, 4, 100), nullptr});
    EXPECT_THAT(Names(), ElementsAre("SetLayout", "SetLayout")) << "the logo is below the client area";
}

TEST_F(Overlay, NothingIsDrawnWithoutBitmapsOrADevice) {
    DrawOverlay(Device(), kClient, {});
    DrawOverlay(nullptr, kClient, {Bitmap(1, {44, 44}, 4, 100), nullptr});
    EXPECT_TRUE(Recorder().calls.empty());
}

TEST_F(Overlay, ABitmapOfOnePixelIsDrawn) {
    DrawOverlay(Device(), kClient, {Bitmap(1, {1, 1}, 3, 100), Bitmap(2, {1, 1}, 3, 9)});
    EXPECT_EQ(Written(292, 10), 100);
    EXPECT_EQ(Written(0, 0), 9);
}

TEST_F(Overlay, WithoutMemoryNothingIsWritten) {
    const zeve::NativeBitmap logo = Bitmap(1, {44, 44}, 4, 100);
    Recorder().refuseBitmap = true;
    DrawOverlay(Device(), kClient, {logo, nullptr});
    EXPECT_TRUE(platform::PaintingCallsOf("WritePixels").empty());
    EXPECT_EQ(platform::PaintingCallsOf("SetLayout").size(), 2u);
}

} // namespace
} // namespace brixen::pvn::pvn_workflow
