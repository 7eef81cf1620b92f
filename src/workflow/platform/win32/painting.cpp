#include "workflow/platform/painting.h"

#include "workflow/platform/resource_platform.h"

#include <windows.h>

#include <algorithm>

namespace brixen::pvn::pvn_workflow::platform {

static_assert(kLayoutMirrored == LAYOUT_RTL && kLayoutKeepsBitmaps == LAYOUT_BITMAPORIENTATIONPRESERVED);
static_assert(kColorWindow == COLOR_WINDOW && kColorWindowText == COLOR_WINDOWTEXT &&
              kColorShadow == COLOR_BTNSHADOW && kColorGrayText == COLOR_GRAYTEXT &&
              kColorFace == COLOR_BTNFACE && kColorHotLight == COLOR_HOTLIGHT &&
              kColorDarkShadow == COLOR_3DDKSHADOW && kStockWhiteBrush == WHITE_BRUSH);

namespace {

using zeve::platform::Extent;
using zeve::platform::Rectangle;

HWND Handle(zeve::NativeWindow window) { return reinterpret_cast<HWND>(window); }
HDC Handle(zeve::NativeDrawing device) { return reinterpret_cast<HDC>(device); }
HBITMAP Handle(zeve::NativeBitmap bitmap) { return reinterpret_cast<HBITMAP>(bitmap); }
HBRUSH Handle(zeve::NativeBrush brush) { return reinterpret_cast<HBRUSH>(brush); }
zeve::NativeDrawing Opaque(HDC device) { return reinterpret_cast<zeve::NativeDrawing>(device); }
zeve::NativeBitmap Opaque(HGDIOBJ bitmap) { return reinterpret_cast<zeve::NativeBitmap>(bitmap); }

RECT Native(const Rectangle& area) { return {area.left, area.top, area.right, area.bottom}; }
bool IsEmpty(const Rectangle& area) { return area.Width() <= 0 || area.Height() <= 0; }

// An object on a device for as long as this lives.
class Selection {
public:
    Selection(HDC onDevice, HGDIOBJ object) : device(onDevice), former(SelectObject(onDevice, object)) {}
    Selection(const Selection&) = delete;
    Selection& operator=(const Selection&) = delete;
    ~Selection() { SelectObject(device, former); }

private:
    HDC device;
    HGDIOBJ former;
};

bool GetSection(zeve::NativeBitmap bitmap, DIBSECTION& section) {
    return GetObjectW(Handle(bitmap), sizeof section, &section) == sizeof section &&
           section.dsBm.bmBits != nullptr;
}

RECT ClientOnScreen(HWND window) {
    RECT area{};
    GetClientRect(window, &area);
    MapWindowPoints(window, nullptr, reinterpret_cast<POINT*>(&area), 2);
    return area;
}

} // namespace

void BitmapDeleter::operator()(zeve::NativeBitmap bitmap) const noexcept { DeleteBitmap(bitmap); }

// --- Devices ---

BitmapDrawing::BitmapDrawing(zeve::NativeBitmap bitmap) noexcept {
    if (!bitmap) return;
    device = Opaque(CreateCompatibleDC(nullptr));
    former = Opaque(SelectObject(Handle(device), Handle(bitmap)));
}

BitmapDrawing::~BitmapDrawing() {
    if (!device) return;
    SelectObject(Handle(device), Handle(former));
    DeleteDC(Handle(device));
}

Painting::Painting(zeve::NativeWindow window) noexcept
    : painted(window), area(zeve::platform::ClientArea(window)) {
    static_assert(sizeof(PAINTSTRUCT) <= sizeof record);
    if (window) target = Opaque(BeginPaint(Handle(window), reinterpret_cast<PAINTSTRUCT*>(record.data())));
    OpenMemory();
}

Painting::Painting(zeve::NativeWindow window, zeve::NativeDrawing device) noexcept
    : painted(nullptr), target(device), area(zeve::platform::ClientArea(window)) {
    OpenMemory();
}

void Painting::OpenMemory() noexcept {
    if (!target || IsEmpty(area)) return;
    bitmap.reset(Opaque(CreateCompatibleBitmap(Handle(target), area.right, area.bottom)));
    if (!bitmap) return;
    memory = Opaque(CreateCompatibleDC(Handle(target)));
    formerBitmap = Opaque(SelectObject(Handle(memory), Handle(bitmap.get())));
    SetLayout(memory, LayoutOf(target) & kLayoutMirrored);
}

Painting::~Painting() {
    if (memory) {
        // Two devices of one layout reflect nothing.
        SetLayout(memory, LayoutOf(target));
        BitBlt(Handle(target), 0, 0, area.right, area.bottom, Handle(memory), 0, 0, SRCCOPY);
        SelectObject(Handle(memory), Handle(formerBitmap));
        DeleteDC(Handle(memory));
    }
    if (painted && target) EndPaint(Handle(painted), reinterpret_cast<PAINTSTRUCT*>(record.data()));
}

zeve::NativeDrawing Painting::Device() const noexcept { return memory ? memory : target; }

std::uint32_t LayoutOf(zeve::NativeDrawing device) noexcept {
    const DWORD layout = device ? ::GetLayout(Handle(device)) : GDI_ERROR;
    return layout == GDI_ERROR ? 0 : layout;
}

void SetLayout(zeve::NativeDrawing device, std::uint32_t layout) noexcept {
    if (device) ::SetLayout(Handle(device), layout);
}

bool IsMirrored(zeve::NativeWindow window) noexcept {
    return (GetWindowLongPtrW(Handle(window), GWL_EXSTYLE) & WS_EX_LAYOUTRTL) != 0;
}

Rectangle PlaceIn(zeve::NativeWindow window, zeve::NativeWindow other) noexcept {
    const RECT inner = ClientOnScreen(Handle(window)), outer = ClientOnScreen(Handle(other));
    return {inner.left - outer.left, inner.top - outer.top, inner.right - outer.left,
            inner.bottom - outer.top};
}

// --- Colors and brushes ---

Color SystemColor(std::int32_t index) noexcept { return GetSysColor(index); }

zeve::NativeBrush StockBrush(std::int32_t index) noexcept {
    return reinterpret_cast<zeve::NativeBrush>(GetStockObject(index));
}

OwnedBrush MakePatternBrush(zeve::NativeBitmap bitmap) noexcept {
    if (!bitmap) return nullptr;
    return OwnedBrush(reinterpret_cast<zeve::NativeBrush>(CreatePatternBrush(Handle(bitmap))));
}

void BrushDeleter::operator()(zeve::NativeBrush brush) const noexcept { DeleteObject(Handle(brush)); }

void SetBrushOrigin(zeve::NativeDrawing device, std::int32_t x, std::int32_t y) noexcept {
    if (device) SetBrushOrgEx(Handle(device), x, y, nullptr);
}

void FillArea(zeve::NativeDrawing device, const Rectangle& area, Color color) noexcept {
    if (!device) return;
    const RECT native = Native(area);
    SetDCBrushColor(Handle(device), color);
    FillRect(Handle(device), &native, static_cast<HBRUSH>(GetStockObject(DC_BRUSH)));
}

void FillArea(zeve::NativeDrawing device, const Rectangle& area, zeve::NativeBrush brush) noexcept {
    if (!device || !brush) return;
    const RECT native = Native(area);
    FillRect(Handle(device), &native, Handle(brush));
}

void DrawRoundFrame(zeve::NativeDrawing device, const Rectangle& area, std::int32_t corner, Color frame,
                    Color fill) noexcept {
    if (!device) return;
    SetDCPenColor(Handle(device), frame);
    SetDCBrushColor(Handle(device), fill);
    const Selection pen(Handle(device), GetStockObject(DC_PEN));
    const Selection brush(Handle(device), GetStockObject(DC_BRUSH));
    RoundRect(Handle(device), area.left, area.top, area.right, area.bottom, corner, corner);
}

void SetTransparentText(zeve::NativeDrawing device, Color color) noexcept {
    if (!device) return;
    SetBkMode(Handle(device), TRANSPARENT);
    SetTextColor(Handle(device), color);
}

// --- Bitmaps ---

OwnedBitmap MakeBitmap(Extent extent) noexcept {
    if (extent.width <= 0 || extent.height <= 0) return nullptr;
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = extent.width;
    info.bmiHeader.biHeight = extent.height;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    void* bits = nullptr;
    return OwnedBitmap(Opaque(CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0)));
}

Extent ExtentOf(zeve::NativeBitmap bitmap) noexcept {
    BITMAP record{};
    if (!bitmap || GetObjectW(Handle(bitmap), sizeof record, &record) == 0) return {};
    return {record.bmWidth, record.bmHeight};
}

PixelRows PixelsOf(zeve::NativeBitmap bitmap) noexcept {
    DIBSECTION section{};
    if (!bitmap || !GetSection(bitmap, section)) return {};
    const BITMAP& shape = section.dsBm;
    if (shape.bmBitsPixel != 24 && shape.bmBitsPixel != 32) return {};
    GdiFlush(); // the system may still draw on the pixels
    // The system does not tell which row is first in memory. In every bitmap made here it is the bottom row.
    const std::ptrdiff_t pitch = shape.bmWidthBytes;
    return {static_cast<std::byte*>(shape.bmBits) + pitch * (shape.bmHeight - 1), -pitch, shape.bmWidth,
            shape.bmHeight, shape.bmBitsPixel / 8};
}

void DrawBitmap(zeve::NativeDrawing device, const Rectangle& area, zeve::NativeBitmap bitmap) noexcept {
    const BitmapDrawing source(bitmap);
    if (!device || !source.Device()) return;
    const Extent extent = ExtentOf(bitmap);
    BitBlt(Handle(device), area.left, area.top, std::min(area.Width(), extent.width),
           std::min(area.Height(), extent.height), Handle(source.Device()), 0, 0, SRCCOPY);
}

void StretchBitmap(zeve::NativeDrawing device, const Rectangle& area, zeve::NativeBitmap bitmap) noexcept {
    const BitmapDrawing source(bitmap);
    if (!device || !source.Device()) return;
    const Extent extent = ExtentOf(bitmap);
    StretchBlt(Handle(device), area.left, area.top, area.Width(), area.Height(), Handle(source.Device()), 0,
               0, extent.width, extent.height, SRCCOPY);
}

void BlendBitmap(zeve::NativeDrawing device, const Rectangle& area, zeve::NativeBitmap bitmap,
                 std::uint8_t alpha) noexcept {
    const BitmapDrawing source(bitmap);
    if (!device || !source.Device()) return;
    const BLENDFUNCTION blend = {AC_SRC_OVER, 0, alpha, AC_SRC_ALPHA};
    AlphaBlend(Handle(device), area.left, area.top, area.Width(), area.Height(), Handle(source.Device()), 0,
               0, area.Width(), area.Height(), blend);
}

DevicePixels::DevicePixels(zeve::NativeDrawing onDevice, const Rectangle& ofDevice) noexcept
    : device(onDevice), part(ofDevice) {
    if (!device || IsEmpty(part)) return;
    bitmap = MakeBitmap({part.Width(), part.Height()});
    if (!bitmap) return;
    {
        const BitmapDrawing copy(bitmap.get());
        if (!copy.Device()) return;
        BitBlt(Handle(copy.Device()), 0, 0, part.Width(), part.Height(), Handle(device), part.left, part.top,
               SRCCOPY);
    }
    rows = PixelsOf(bitmap.get());
}

void DevicePixels::Write() noexcept {
    if (rows.top) DrawBitmap(device, part, bitmap.get());
}

} // namespace brixen::pvn::pvn_workflow::platform
