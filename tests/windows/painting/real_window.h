// A real window with controls, and a bitmap in memory to draw on and to read back, mirrored or not.
#pragma once

#include "workflow/platform/painting.h"

#include <windows.h>

#include <cstdint>

namespace brixen::pvn::pvn_workflow {

using platform::Color;

inline zeve::NativeWindow Opaque(HWND window) { return reinterpret_cast<zeve::NativeWindow>(window); }

// A color as the pixels of a bitmap have it.
inline Color Pixel(int red, int green, int blue) {
    return static_cast<Color>(red) | static_cast<Color>(green) << 8 | static_cast<Color>(blue) << 16;
}

// A bitmap of 32 bits with a device.
class Canvas {
public:
    Canvas(std::int32_t width, std::int32_t height, Color ground)
        : bitmap(platform::MakeBitmap({width, height})), drawing(bitmap.get()) {
        platform::FillArea(Device(), {0, 0, width, height}, ground);
    }

    zeve::NativeDrawing Device() const { return drawing.Device(); }
    zeve::NativeBitmap Bitmap() const { return bitmap.get(); }
    // Counts from the left also on a mirrored device.
    Color At(std::int32_t x, std::int32_t y) const {
        const std::byte* pixel = platform::PixelsOf(bitmap.get()).Row(y).data() + x * 4;
        return Pixel(std::to_integer<int>(pixel[2]), std::to_integer<int>(pixel[1]),
                     std::to_integer<int>(pixel[0]));
    }

private:
    platform::OwnedBitmap bitmap;
    platform::BitmapDrawing drawing;
};

// Sets one pixel of a bitmap of 24 or 32 bits.
inline void SetPixelOf(zeve::NativeBitmap bitmap, std::int32_t x, std::int32_t y, Color color,
                       int alpha = 255) {
    const platform::PixelRows rows = platform::PixelsOf(bitmap);
    std::byte* pixel = rows.Row(y).data() + x * rows.pixelBytes;
    for (int i = 0; i < 3; ++i) pixel[i] = static_cast<std::byte>(color >> (16 - 8 * i));
    if (rows.pixelBytes == 4) pixel[3] = static_cast<std::byte>(alpha);
}

// Fills a bitmap so that no two pixels of a row or column are alike.
inline void FillWithPattern(zeve::NativeBitmap bitmap) {
    const platform::PixelRows rows = platform::PixelsOf(bitmap);
    for (std::int32_t y = 0; y < rows.height; ++y) {
        for (std::int32_t x = 0; x < rows.width; ++x)
            SetPixelOf(bitmap, x, y, Pixel(x % 256, y % 256, x / 256));
    }
}

// A shown popup window with a client area of exactly that size.
class TestWindow {
public:
    TestWindow(int width, int height, DWORD extendedStyle = 0)
        : window(CreateWindowExW(extendedStyle, L"Static", L"", WS_POPUP | WS_VISIBLE, 100, 100, width,
                                 height, nullptr, nullptr, nullptr, nullptr)) {}
    TestWindow(const TestWindow&) = delete;
    TestWindow& operator=(const TestWindow&) = delete;
    ~TestWindow() { DestroyWindow(window); }

    HWND Get() const { return window; }
    HWND AddStatic(int left, int top, int width, int height) const {
        return CreateWindowExW(0, L"Static", L"", WS_CHILD | WS_VISIBLE, left, top, width, height, window,
                               nullptr, nullptr, nullptr);
    }

private:
    HWND window;
};

} // namespace brixen::pvn::pvn_workflow
