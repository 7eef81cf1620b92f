// Painting by hand: devices, brushes, bitmaps and their pixels. Coordinates are pixels of the device; those
// of a mirrored device count from the right. A null device, brush or bitmap is harmless everywhere: the call
// does nothing. Nothing here throws. Everything belongs to the thread of the windows.
#pragma once

#include "toolkit/platform/native_types.h"
#include "toolkit/platform/toolkit_platform.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>

namespace brixen::pvn::pvn_workflow::platform {

using Color = std::uint32_t; // 0x00BBGGRR

struct BitmapDeleter {
    using pointer = zeve::NativeBitmap;
    void operator()(zeve::NativeBitmap bitmap) const noexcept;
};
using OwnedBitmap = std::unique_ptr<zeve::NativeBitmap, BitmapDeleter>;

// --- Devices ---

// A device that draws on a bitmap, which must outlive it and be on no other device.
class BitmapDrawing {
public:
    explicit BitmapDrawing(zeve::NativeBitmap bitmap) noexcept;
    BitmapDrawing(const BitmapDrawing&) = delete;
    BitmapDrawing& operator=(const BitmapDrawing&) = delete;
    ~BitmapDrawing();

    // Returns null if the system refused the device.
    zeve::NativeDrawing Device() const noexcept { return device; }

private:
    zeve::NativeDrawing device = nullptr;
    [[maybe_unused]] zeve::NativeBitmap former = nullptr; // on the device at first
};

// One paint of a window. Everything is drawn on a bitmap in memory, and the window gets it as one copy at the
// end of this object's life. The memory is mirrored if the window is.
class Painting {
public:
    // Answers a paint message: the window is valid afterwards.
    explicit Painting(zeve::NativeWindow window) noexcept;
    // Paints on a device of the caller, as the messages to erase and to print need it.
    Painting(zeve::NativeWindow window, zeve::NativeDrawing device) noexcept;
    Painting(const Painting&) = delete;
    Painting& operator=(const Painting&) = delete;
    ~Painting();

    // Returns the device in memory; the window's own if the system refused the memory; null if it refused
    // both.
    zeve::NativeDrawing Device() const noexcept;
    // Returns the client area of the window.
    const zeve::platform::Rectangle& Area() const noexcept { return area; }

private:
    void OpenMemory() noexcept;

    zeve::NativeWindow painted;           // null if the device is the caller's
    zeve::NativeDrawing target = nullptr; // the window's or the caller's
    zeve::NativeDrawing memory = nullptr; // null if refused
    zeve::platform::Rectangle area;
    // The twin has no need of the rest.
    [[maybe_unused]] OwnedBitmap bitmap;                        // on `memory`
    [[maybe_unused]] zeve::NativeBitmap formerBitmap = nullptr; // on `memory` at first
    [[maybe_unused]] alignas(
        void*) std::array<std::byte, 80> record{}; // the system's own, of a paint message
};

// How a device maps coordinates and bitmaps.
inline constexpr std::uint32_t kLayoutMirrored = 1;     // LAYOUT_RTL: x counts from the right
inline constexpr std::uint32_t kLayoutKeepsBitmaps = 8; // LAYOUT_BITMAPORIENTATIONPRESERVED

[[nodiscard]] std::uint32_t LayoutOf(zeve::NativeDrawing device) noexcept;
void SetLayout(zeve::NativeDrawing device, std::uint32_t layout) noexcept;

// A device that reflects neither coordinates nor bitmaps for as long as this lives.
class UnmirroredDevice {
public:
    explicit UnmirroredDevice(zeve::NativeDrawing ofDevice) noexcept
        : device(ofDevice), former(LayoutOf(ofDevice)) {
        SetLayout(device, kLayoutKeepsBitmaps);
    }
    UnmirroredDevice(const UnmirroredDevice&) = delete;
    UnmirroredDevice& operator=(const UnmirroredDevice&) = delete;
    ~UnmirroredDevice() { SetLayout(device, former); }

    bool WasMirrored() const noexcept { return (former & kLayoutMirrored) != 0; }

private:
    zeve::NativeDrawing device;
    std::uint32_t former;
};

[[nodiscard]] bool IsMirrored(zeve::NativeWindow window) noexcept;
// Returns where a window's client area is in that of another window, counted from the left as on the screen,
// also in a mirrored window.
[[nodiscard]] zeve::platform::Rectangle PlaceIn(zeve::NativeWindow window, zeve::NativeWindow other) noexcept;

// --- Colors and brushes ---

// The indexes of SystemColor.
inline constexpr std::int32_t kColorWindow = 5;      // COLOR_WINDOW
inline constexpr std::int32_t kColorWindowText = 8;  // COLOR_WINDOWTEXT
inline constexpr std::int32_t kColorFace = 15;       // COLOR_BTNFACE
inline constexpr std::int32_t kColorShadow = 16;     // COLOR_BTNSHADOW
inline constexpr std::int32_t kColorGrayText = 17;   // COLOR_GRAYTEXT
inline constexpr std::int32_t kColorDarkShadow = 21; // COLOR_3DDKSHADOW
inline constexpr std::int32_t kColorHotLight = 26;   // COLOR_HOTLIGHT

[[nodiscard]] Color SystemColor(std::int32_t index) noexcept;

inline constexpr std::int32_t kStockWhiteBrush = 0; // WHITE_BRUSH

// Returns a brush that nobody deletes.
[[nodiscard]] zeve::NativeBrush StockBrush(std::int32_t index) noexcept;
struct BrushDeleter {
    using pointer = zeve::NativeBrush;
    void operator()(zeve::NativeBrush brush) const noexcept;
};
using OwnedBrush = std::unique_ptr<zeve::NativeBrush, BrushDeleter>;

// Returns a brush that repeats a copy of the bitmap, or null.
[[nodiscard]] OwnedBrush MakePatternBrush(zeve::NativeBitmap bitmap) noexcept;

// Moves the top left corner of a pattern's first repetition on the device.
void SetBrushOrigin(zeve::NativeDrawing device, std::int32_t x, std::int32_t y) noexcept;

void FillArea(zeve::NativeDrawing device, const zeve::platform::Rectangle& area, Color color) noexcept;
void FillArea(zeve::NativeDrawing device, const zeve::platform::Rectangle& area,
              zeve::NativeBrush brush) noexcept;
// Draws a frame of one pixel with rounded corners around a filled area. `corner` is the width and height of
// the ellipse that rounds them.
void DrawRoundFrame(zeve::NativeDrawing device, const zeve::platform::Rectangle& area, std::int32_t corner,
                    Color frame, Color fill) noexcept;
// From now on texts on the device have that color and no background.
void SetTransparentText(zeve::NativeDrawing device, Color color) noexcept;

// --- Bitmaps ---

// The pixels of a bitmap in place, the top row first, blue first in each pixel. Borrowed: they live as long
// as the bitmap, which must be one of MakeBitmap or DecodeBitmap. Empty for a bitmap that is not of 24 or 32
// bits or whose pixels are not in memory.
struct PixelRows {
    std::byte* top = nullptr;
    std::ptrdiff_t pitch = 0; // bytes from one row to the next; negative if the bottom row is first in memory
    std::int32_t width = 0, height = 0;
    std::int32_t pixelBytes = 0; // 3 or 4

    std::span<std::byte> Row(std::int32_t y) const {
        return {top + y * pitch, static_cast<std::size_t>(width) * static_cast<std::size_t>(pixelBytes)};
    }
};

// Returns a bitmap of 32 bits a pixel, all bytes 0, or null.
[[nodiscard]] OwnedBitmap MakeBitmap(zeve::platform::Extent extent) noexcept;
[[nodiscard]] zeve::platform::Extent ExtentOf(zeve::NativeBitmap bitmap) noexcept;
[[nodiscard]] PixelRows PixelsOf(zeve::NativeBitmap bitmap) noexcept;

// Copies the top left part of the bitmap to an area of its size; the rest of the area stays as it is.
void DrawBitmap(zeve::NativeDrawing device, const zeve::platform::Rectangle& area,
                zeve::NativeBitmap bitmap) noexcept;
// Copies the whole bitmap, stretched to the area.
void StretchBitmap(zeve::NativeDrawing device, const zeve::platform::Rectangle& area,
                   zeve::NativeBitmap bitmap) noexcept;
// Lays the top left part of a bitmap with premultiplied alpha over an area of its size. `alpha` weakens all
// of it: 255 is all, 0 nothing.
void BlendBitmap(zeve::NativeDrawing device, const zeve::platform::Rectangle& area, zeve::NativeBitmap bitmap,
                 std::uint8_t alpha) noexcept;

// A part of a device as pixels: read once, changed in memory, written once.
class DevicePixels {
public:
    // Reads the part. Cut it to what the device has before.
    DevicePixels(zeve::NativeDrawing device, const zeve::platform::Rectangle& part) noexcept;
    DevicePixels(const DevicePixels&) = delete;
    DevicePixels& operator=(const DevicePixels&) = delete;

    // Returns the pixels with 4 bytes each, the fourth without meaning. Empty if the system refused.
    const PixelRows& Rows() const noexcept { return rows; }
    // Writes them back to their place.
    void Write() noexcept;

private:
    zeve::NativeDrawing device;
    zeve::platform::Rectangle part;
    OwnedBitmap bitmap;
    PixelRows rows;
};

} // namespace brixen::pvn::pvn_workflow::platform
