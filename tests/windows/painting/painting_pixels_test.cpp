// Pixels of painted things, read back from a device in memory and compared with what the rules say.
#include "toolkit/platform/toolkit_platform.h"
#include "windows/painting/real_window.h"
#include "workflow/controls/backdrop.h"
#include "workflow/controls/busy_bar.h"
#include "workflow/controls/busy_bar_cell.h"
#include "workflow/controls/my_prog_bar.h"
#include "workflow/controls/overlay.h"
#include "workflow/controls/pixel_blend.h"
#include "workflow/platform/resource_platform.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <string>

namespace brixen::pvn::pvn_workflow {
namespace {

using zeve::platform::Rectangle;

constexpr Color kGround = 0x406080;

Color BlendedColor(Color source, Color target, int alpha) {
    Color result = 0;
    for (int shift = 0; shift < 24; shift += 8) {
        const Color value = ((source >> shift & 255) * static_cast<Color>(alpha) +
                             (target >> shift & 255) * static_cast<Color>(255 - alpha)) /
                            255;
        result |= value << shift;
    }
    return result;
}

class PaintedPixels : public testing::TestWithParam<bool> {
protected:
    static bool IsMirrored() { return GetParam(); }
    static DWORD ExtendedStyle() { return IsMirrored() ? WS_EX_LAYOUTRTL : 0; }
    static void Mirror(const Canvas& canvas) {
        if (IsMirrored()) platform::SetLayout(canvas.Device(), platform::kLayoutMirrored);
    }
    // The place from the left of something that is `x` from the side where reading begins.
    static int FromLeft(int x, int width) { return IsMirrored() ? width - 1 - x : x; }
};

TEST_P(PaintedPixels, TheLogoIsBlendedAtTheTopRightAndNeverReflected) {
    const Canvas canvas(100, 60, kGround);
    Mirror(canvas);
    const platform::OwnedBitmap logo = platform::MakeBitmap({3, 2});
    SetPixelOf(logo.get(), 0, 0, 0x0000FF, 255);
    SetPixelOf(logo.get(), 1, 0, 0x00FF00, 100);
    SetPixelOf(logo.get(), 2, 1, 0xFFFFFF, 30);
    DrawOverlay(canvas.Device(), {0, 0, 100, 60}, {logo.get(), nullptr});
    EXPECT_EQ(canvas.At(90, 10), 0x0000FFu);
    EXPECT_EQ(canvas.At(91, 10), BlendedColor(0x00FF00, kGround, 100));
    EXPECT_EQ(canvas.At(92, 10), kGround) << "clear";
    EXPECT_EQ(canvas.At(92, 11), BlendedColor(0xFFFFFF, kGround, 30));
    EXPECT_EQ(canvas.At(89, 10), kGround);
    EXPECT_EQ(canvas.At(93, 11), kGround);
    EXPECT_EQ(platform::LayoutOf(canvas.Device()), IsMirrored() ? platform::kLayoutMirrored : 0u);
}

// Its rows have a byte more than their pixels.
TEST_P(PaintedPixels, ALogoOf24BitsIsCopied) {
    const Canvas canvas(100, 60, kGround);
    Mirror(canvas);
    BITMAPINFO info = {};
    info.bmiHeader = {sizeof info.bmiHeader, 5, 3, 1, 24, BI_RGB, 0, 0, 0, 0, 0};
    void* bits = nullptr;
    const HBITMAP logo = CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
    ASSERT_NE(logo, nullptr);
    FillWithPattern(reinterpret_cast<zeve::NativeBitmap>(logo));
    DrawOverlay(canvas.Device(), {0, 0, 100, 60}, {reinterpret_cast<zeve::NativeBitmap>(logo), nullptr});
    for (int y = 0; y < 3; ++y) {
        for (int x = 0; x < 5; ++x) EXPECT_EQ(canvas.At(88 + x, 10 + y), Pixel(x, y, 0)) << x << ", " << y;
    }
    EXPECT_EQ(canvas.At(93, 11), kGround);
    DeleteObject(logo);
}

TEST_P(PaintedPixels, TheLabelIsCopiedWithoutItsWhite) {
    const Canvas canvas(100, 60, kGround);
    Mirror(canvas);
    const platform::OwnedBitmap label = platform::MakeBitmap({4, 2});
    for (int i = 0; i < 8; ++i) SetPixelOf(label.get(), i % 4, i / 4, 0xFFFFFF);
    SetPixelOf(label.get(), 0, 0, 0x010203);
    SetPixelOf(label.get(), 3, 1, 0xFFFEFF, 0);
    DrawOverlay(canvas.Device(), {0, 0, 100, 60}, {nullptr, label.get()});
    const int left = IsMirrored() ? 96 : 0;
    EXPECT_EQ(canvas.At(left, 0), 0x010203u);
    EXPECT_EQ(canvas.At(left + 3, 1), 0xFFFEFFu);
    EXPECT_EQ(canvas.At(left + 1, 0), kGround);
    EXPECT_EQ(canvas.At(left + 3, 0), kGround);
}

TEST_P(PaintedPixels, ABackdropIsTheBackgroundAndReflectedOnlyInAMirroredWindow) {
    const TestWindow window(40, 30, ExtendedStyle());
    const platform::OwnedBitmap background = platform::MakeBitmap({50, 20});
    FillWithPattern(background.get());
    PanelRenderer panel(background.get(), kFirstPanelSize, kNoFrame);
    const platform::OwnedBitmap rendered = RenderBackdrop(panel, Opaque(window.Get()));
    const Canvas canvas(40, 30, kGround);
    Mirror(canvas);
    DrawBackdrop(canvas.Device(), {0, 0, 40, 30}, rendered.get());
    for (int y = 0; y < 30; ++y) {
        for (int x = 0; x < 40; ++x) {
            // Below the bitmap the panel's ground shows.
            const Color expected = y < 20 ? Pixel(x, y, 0) : 0x8080FF;
            ASSERT_EQ(canvas.At(FromLeft(x, 40), y), expected) << x << ", " << y;
        }
    }
}

TEST_P(PaintedPixels, AFrameIsBlendedOverThePanelWithItsAlpha) {
    const platform::OwnedBitmap bitmap = PanelRenderer(nullptr, {9, 9}, 255).Render(0);
    const Canvas canvas(9, 9, 0);
    platform::DrawBitmap(canvas.Device(), {0, 0, 9, 9}, bitmap.get());
    EXPECT_EQ(canvas.At(0, 0), 0x8080FFu) << "margin";
    EXPECT_EQ(canvas.At(1, 4), 0x8080FFu);
    EXPECT_EQ(canvas.At(2, 2), 0x6666CCu) << "black at 20 percent: 80 percent of the ground";
    EXPECT_EQ(canvas.At(4, 4), 0xECECFFu) << "white at 85 percent";
    const platform::OwnedBitmap plain = PanelRenderer(nullptr, {9, 9}, 0).Render(0);
    platform::DrawBitmap(canvas.Device(), {0, 0, 9, 9}, plain.get());
    EXPECT_EQ(canvas.At(4, 4), 0x8080FFu);
}

TEST_P(PaintedPixels, AnAlmostFittingBackdropIsCenteredAndAnotherStretched) {
    const platform::OwnedBitmap panel = platform::MakeBitmap({36, 26});
    FillWithPattern(panel.get());
    const Canvas canvas(40, 30, kGround);
    DrawBackdrop(canvas.Device(), {0, 0, 40, 30}, panel.get());
    EXPECT_EQ(canvas.At(1, 2), kGround);
    EXPECT_EQ(canvas.At(2, 2), Pixel(0, 0, 0));
    EXPECT_EQ(canvas.At(37, 27), Pixel(35, 25, 0));
    EXPECT_EQ(canvas.At(38, 27), kGround);
    const Canvas large(72, 52, kGround);
    DrawBackdrop(large.Device(), {0, 0, 72, 52}, panel.get());
    EXPECT_EQ(large.At(0, 0), Pixel(0, 0, 0));
    EXPECT_EQ(large.At(71, 51), Pixel(35, 25, 0));
    EXPECT_EQ(large.At(31, 21), Pixel(15, 10, 0));
}

TEST_P(PaintedPixels, TheBrushContinuesTheBackdropPixelForPixel) {
    const TestWindow window(120, 90, ExtendedStyle());
    const HWND control = window.AddStatic(17, 23, 61, 31);
    const platform::OwnedBitmap background = platform::MakeBitmap({120, 90});
    FillWithPattern(background.get());
    PanelRenderer panel(background.get(), kFirstPanelSize, kNoFrame);
    const platform::OwnedBitmap rendered = RenderBackdrop(panel, Opaque(window.Get()));
    const platform::OwnedBrush brush = platform::MakePatternBrush(rendered.get());

    const Canvas canvas(61, 31, kGround);
    Mirror(canvas);
    platform::FillArea(canvas.Device(), {0, 0, 61, 31},
                       BrushBehind(Opaque(control), canvas.Device(), Opaque(window.Get()), brush.get()));
    for (int y = 0; y < 31; ++y) {
        for (int x = 0; x < 61; ++x) {
            ASSERT_EQ(canvas.At(FromLeft(x, 61), y), Pixel(x + 17, y + 23, 0)) << x << ", " << y;
        }
    }
}

TEST_P(PaintedPixels, APaintingReachesItsDeviceAsItWasDrawn) {
    const TestWindow window(30, 20, ExtendedStyle());
    const Canvas canvas(30, 20, kGround);
    Mirror(canvas);
    {
        const platform::Painting painting(Opaque(window.Get()), canvas.Device());
        EXPECT_EQ(painting.Area(), (Rectangle{0, 0, 30, 20}));
        platform::FillArea(painting.Device(), painting.Area(), Color{0x112233});
        platform::FillArea(painting.Device(), {2, 3, 7, 5}, Color{0x445566});
        EXPECT_EQ(canvas.At(15, 10), kGround) << "nothing yet";
    }
    for (int y = 0; y < 20; ++y) {
        for (int x = 0; x < 30; ++x) {
            const bool isInside = x >= 2 && x < 7 && y >= 3 && y < 5;
            ASSERT_EQ(canvas.At(FromLeft(x, 30), y), isInside ? 0x445566u : 0x112233u) << x << ", " << y;
        }
    }
}

// The color of a pixel of the cell over the bar's ground.
Color CellOver(Color ground, const platform::PixelRows& cell, int x, int y) {
    const std::byte* pixel = cell.Row(y).data() + x * 4;
    const int alpha = std::to_integer<int>(pixel[3]);
    Color result = 0;
    for (int i = 0; i < 3; ++i) {
        const int shift = 16 - 8 * i;
        const int value = std::to_integer<int>(pixel[i]) +
                          (static_cast<int>(ground >> shift & 255) * (255 - alpha) + 127) / 255;
        result |= static_cast<Color>(std::min(value, 255)) << shift;
    }
    return result;
}

bool IsNear(Color one, Color other) {
    for (int shift = 0; shift < 24; shift += 8) {
        if (std::abs(static_cast<int>(one >> shift & 255) - static_cast<int>(other >> shift & 255)) > 1)
            return false;
    }
    return true;
}

class BarInWindow : public PaintedPixels {
protected:
    BarInWindow() {
        EXPECT_TRUE(bar.Attach(Opaque(control)));
        FillBusyCell(platform::PixelsOf(cell.get()), kBusyColor);
    }

    void Print(const Canvas& canvas) const {
        SendMessageW(control, WM_PRINTCLIENT, reinterpret_cast<WPARAM>(canvas.Device()), PRF_CLIENT);
    }
    // Expects the cell with its left edge at x, and nothing of it in its 22nd column.
    void ExpectCell(const Canvas& canvas, int left) const {
        const Color back = GetSysColor(COLOR_WINDOW);
        for (int y = 0; y < kBusyCellHeight; ++y) {
            for (int x = 0; x < kBusyCellWidth; ++x) {
                if (left + x < 1 || left + x > 98) continue;
                const Color expected =
                    x + 1 == kBusyCellWidth ? back : CellOver(back, platform::PixelsOf(cell.get()), x, y);
                // The system may round a blended byte either way.
                EXPECT_TRUE(IsNear(canvas.At(FromLeft(left + x, 100), y + 3), expected))
                    << x << ", " << y << ": " << std::hex << canvas.At(FromLeft(left + x, 100), y + 3)
                    << " for " << expected;
            }
        }
    }

    TestWindow window{200, 100, ExtendedStyle()};
    HWND control = window.AddStatic(10, 10, 100, 13);
    BusyBar bar;
    platform::OwnedBitmap cell = platform::MakeBitmap({kBusyCellWidth, kBusyCellHeight});
};

TEST_P(BarInWindow, TheCellIsBlendedWhereItIs) {
    const Canvas canvas(100, 13, kGround);
    Mirror(canvas);
    Print(canvas);
    ExpectCell(canvas, 0);
    EXPECT_EQ(canvas.At(FromLeft(50, 100), 6), GetSysColor(COLOR_WINDOW));
    EXPECT_EQ(canvas.At(FromLeft(50, 100), 0), GetSysColor(COLOR_3DDKSHADOW));
    EXPECT_EQ(canvas.At(FromLeft(50, 100), 12), GetSysColor(COLOR_3DDKSHADOW));
    EXPECT_EQ(canvas.At(FromLeft(99, 100), 6), GetSysColor(COLOR_3DDKSHADOW));
    for (const auto& [x, y] : {std::pair(0, 0), {99, 0}, {0, 12}, {99, 12}}) {
        EXPECT_NE(canvas.At(x, y), GetSysColor(COLOR_3DDKSHADOW)) << "the corners are round";
        EXPECT_NE(canvas.At(x, y), GetSysColor(COLOR_WINDOW));
    }
}

TEST_P(BarInWindow, TheTimerMovesTheCell) {
    SendMessageW(control, WM_TIMER, kBusyTimer, 0);
    SendMessageW(control, WM_TIMER, kBusyTimer, 0);
    const Canvas canvas(100, 13, kGround);
    Mirror(canvas);
    Print(canvas);
    ExpectCell(canvas, 18);
    EXPECT_EQ(canvas.At(FromLeft(10, 100), 6), GetSysColor(COLOR_WINDOW));
}

TEST_P(BarInWindow, AFinishedBarIsFull) {
    bar.SetFinished();
    const Canvas canvas(100, 13, kGround);
    Mirror(canvas);
    Print(canvas);
    for (const int left : {4, 27, 50, 73}) ExpectCell(canvas, left);
}

TEST_P(BarInWindow, TheTimerOfTheSystemArrivesUntilItIsFinished) {
    bar.Start();
    MSG message;
    for (int step = 1; step <= 2; ++step) {
        ASSERT_GT(GetMessageW(&message, control, WM_TIMER, WM_TIMER), 0);
        EXPECT_EQ(message.wParam, kBusyTimer);
        DispatchMessageW(&message);
        EXPECT_EQ(bar.Position(), 9 * step);
    }
    bar.SetFinished();
    EXPECT_FALSE(KillTimer(control, kBusyTimer)) << "it is gone";
}

TEST_P(BarInWindow, AShownBarLooksLikeAPrintedOne) {
    bar.SetFinished();
    UpdateWindow(control);
    const Canvas screen(100, 13, kGround), printed(100, 13, kGround);
    const HDC device = GetDC(control);
    SetLayout(device, 0);
    BitBlt(reinterpret_cast<HDC>(screen.Device()), 0, 0, 100, 13, device, 0, 0, SRCCOPY);
    ReleaseDC(control, device);
    Mirror(printed);
    Print(printed);
    for (int y = 0; y < 13; ++y) {
        for (int x = 0; x < 100; ++x) ASSERT_EQ(screen.At(x, y), printed.At(x, y)) << x << ", " << y;
    }
}

class GaugeInWindow : public PaintedPixels {
protected:
    GaugeInWindow() { TheGaugeData() = GaugeData(); }
    ~GaugeInWindow() override { TheGaugeData() = GaugeData(); }

    void Show(std::uint32_t start, std::uint32_t end, int position) const {
        SendMessageW(gauge, kGaugeSetRange, 0, static_cast<LPARAM>(start << 16 | end));
        SendMessageW(gauge, kGaugeSetPosition, 0, position);
    }
    void Print(const Canvas& canvas) const {
        SendMessageW(gauge, WM_PRINTCLIENT, reinterpret_cast<WPARAM>(canvas.Device()), PRF_CLIENT);
    }
    // The width of "0" in the gauge's font.
    static int DigitWidth() {
        const HDC screen = GetDC(nullptr);
        const HFONT font = CreateFontW(13, 0, 0, 0, 400, 0, 0, 0, 0, 0, 0, PROOF_QUALITY, 0, L"Tahoma");
        const HGDIOBJ former = SelectObject(screen, font);
        SIZE extent{};
        GetTextExtentPoint32W(screen, L"0", 1, &extent);
        SelectObject(screen, former);
        DeleteObject(font);
        ReleaseDC(nullptr, screen);
        return extent.cx;
    }

    TestWindow window{300, 100, ExtendedStyle()};
    HWND gauge = reinterpret_cast<HWND>(MakeGauge(Opaque(window.Get()), 5, {10, 10, 210, 50}));
};

TEST_P(GaugeInWindow, HasItsClassAndItsMemory) {
    ASSERT_NE(gauge, nullptr);
    wchar_t name[20] = {};
    GetClassNameW(gauge, name, 20);
    EXPECT_EQ(std::wstring(name), L"MyProgBar");
    EXPECT_EQ(GetClassLongPtrW(gauge, GCL_STYLE), 3u);
    EXPECT_EQ(GetClassLongPtrW(gauge, GCL_CBWNDEXTRA), 32u);
    EXPECT_EQ(GetWindowLongPtrW(gauge, 16), 0x1E0000);
    EXPECT_EQ(GetWindowLongPtrW(gauge, 24), 10);
}

TEST_P(GaugeInWindow, FillsThePartsOfTheBarByTheUse) {
    const std::pair<int, Color> uses[] = {{40, 1440533}, {50, 1440763}, {80, 1440763}, {81, 1381883}};
    const int digit = DigitWidth(), left = digit, right = 200 - digit / 2 - 48;
    for (const auto& [position, color] : uses) {
        Show(0, 100, position);
        const Canvas canvas(200, 40, kGround);
        Mirror(canvas);
        Print(canvas);
        const int split = left + position * (right - left) / 100;
        const auto at = [&canvas](int x, int y) { return canvas.At(FromLeft(x, 200), y); };
        EXPECT_EQ(at(left, 25), 0xA3A3A3u) << "frame";
        EXPECT_EQ(at(right - 1, 25), 0xA3A3A3u);
        EXPECT_EQ(at(left + 10, 19), 0xA3A3A3u);
        EXPECT_EQ(at(left + 10, 38), 0xA3A3A3u);
        EXPECT_EQ(at(left + 2, 21), 0xD7D7D7u);
        EXPECT_EQ(at(split - 1, 36), 0xD7D7D7u);
        EXPECT_NE(at(split, 36), 0xD7D7D7u);
        EXPECT_NE(at(split + 1, 36), color);
        EXPECT_EQ(at(split + 2, 36), color) << position;
        EXPECT_EQ(at(right - 3, 21), color);
        EXPECT_NE(at(right - 2, 21), color);
        EXPECT_EQ(at(left, 14), 0xA3A3A3u) << "tick";
        EXPECT_EQ(at(right - 1, 16), 0xA3A3A3u);
    }
}

TEST_P(GaugeInWindow, AFullBarHasItsColorInOneColumn) {
    Show(0, 100, 100);
    const Canvas canvas(200, 40, kGround);
    Mirror(canvas);
    Print(canvas);
    const int right = 200 - DigitWidth() / 2 - 48;
    for (int x = 0; x < 200; ++x) {
        EXPECT_EQ(canvas.At(FromLeft(x, 200), 30) == 1381883u, x == right - 2) << x;
    }
}

INSTANTIATE_TEST_SUITE_P(LeftToRightAndMirrored, PaintedPixels, testing::Bool());
INSTANTIATE_TEST_SUITE_P(LeftToRightAndMirrored, BarInWindow, testing::Bool());
INSTANTIATE_TEST_SUITE_P(LeftToRightAndMirrored, GaugeInWindow, testing::Bool());

// --- Hostile bitmaps ---

TEST(HostileBitmaps, AreNotDrawnAndHarmNothing) {
    ASSERT_TRUE(platform::StartDecoder());
    for (const char* name :
         {"text.png", "empty.png", "cut_in_header.png", "signature_only.png", "vast.png"}) {
        const auto path = std::filesystem::path(PAVANE_TEST_DATA) / "bitmaps" / name;
        const platform::DecodedBitmap decoded = platform::DecodeBitmap(path.u16string().c_str());
        EXPECT_EQ(decoded.bitmap, nullptr) << name;
        const Canvas canvas(10, 10, kGround);
        DrawOverlay(canvas.Device(), {0, 0, 10, 10}, {decoded.bitmap, decoded.bitmap});
        EXPECT_EQ(canvas.At(5, 5), kGround) << name;
    }
    platform::StopDecoder();
}

TEST(HostileBitmaps, OfOnePixelAreDrawn) {
    const platform::OwnedBitmap pixel = platform::MakeBitmap({1, 1});
    SetPixelOf(pixel.get(), 0, 0, 0x102030);
    const Canvas canvas(20, 20, kGround);
    DrawBackdrop(canvas.Device(), {0, 0, 20, 20}, pixel.get());
    EXPECT_EQ(canvas.At(19, 19), 0x102030u) << "stretched";
    DrawOverlay(canvas.Device(), {0, 0, 20, 20}, {pixel.get(), pixel.get()});
    EXPECT_EQ(canvas.At(12, 10), 0x102030u);
}

TEST(HostileBitmaps, OfVastExtentAreDrawnWhereTheyAreSeen) {
    const platform::OwnedBitmap vast = platform::MakeBitmap({20'000, 1'000});
    ASSERT_TRUE(vast);
    SetPixelOf(vast.get(), 5, 5, 0x102030);
    const Canvas canvas(20, 20, kGround);
    DrawOverlay(canvas.Device(), {0, 0, 20, 20}, {nullptr, vast.get()});
    EXPECT_EQ(canvas.At(5, 5), 0x102030u);
    EXPECT_EQ(canvas.At(6, 5), 0u);
}

} // namespace
} // namespace brixen::pvn::pvn_workflow
