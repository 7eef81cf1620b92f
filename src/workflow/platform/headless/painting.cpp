#include "workflow/platform/painting.h"

#include "toolkit/platform/headless/headless.h"
#include "workflow/platform/headless/painting_recorder.h"
#include "workflow/platform/resource_platform.h"

#include <algorithm>
#include <iterator>
#include <new>
#include <utility>

namespace brixen::pvn::pvn_workflow::platform {

namespace {

using zeve::platform::Extent;
using zeve::platform::Rectangle;

template <class Handle>
std::int64_t Number(Handle handle) {
    return static_cast<std::int64_t>(reinterpret_cast<std::uintptr_t>(handle));
}

template <class Handle>
Handle NewHandle() {
    return reinterpret_cast<Handle>(ThePaintingRecorder().lastHandle += 16);
}

void Record(const char* name, zeve::NativeDrawing device,
            std::initializer_list<std::int64_t> numbers = {}) noexcept {
    if (!ThePaintingRecorder().keepsCalls) return;
    try {
        ThePaintingRecorder().calls.push_back({name, device, numbers});
    } catch (const std::bad_alloc&) {
        // A test that lets memory run out reads no calls.
    }
}

zeve::NativeDrawing NewDevice() noexcept {
    try {
        return *ThePaintingRecorder().devices.insert(NewHandle<zeve::NativeDrawing>()).first;
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}

void ForgetDevice(zeve::NativeDrawing device) noexcept {
    ThePaintingRecorder().devices.erase(device);
    ThePaintingRecorder().layouts.erase(device);
}

std::ptrdiff_t PitchOf(const BitmapRecord& record) {
    return (std::ptrdiff_t{record.extent.width} * record.pixelBytes + 3) / 4 * 4;
}

} // namespace

PaintingRecorder& ThePaintingRecorder() {
    static PaintingRecorder recorder;
    return recorder;
}

std::vector<PaintingCall> PaintingCallsOf(std::string_view name) {
    std::vector<PaintingCall> found;
    std::ranges::copy_if(ThePaintingRecorder().calls, std::back_inserter(found),
                         [name](const PaintingCall& call) { return call.name == name; });
    return found;
}

void GivePixels(zeve::NativeBitmap bitmap, BitmapRecord record) {
    record.bytes.resize(static_cast<std::size_t>(PitchOf(record) * record.extent.height));
    ThePaintingRecorder().bitmaps[bitmap] = std::move(record);
}

void BitmapDeleter::operator()(zeve::NativeBitmap bitmap) const noexcept { DeleteBitmap(bitmap); }

BitmapDrawing::BitmapDrawing(zeve::NativeBitmap bitmap) noexcept {
    if (!bitmap || ThePaintingRecorder().refuseDevice) return;
    device = NewDevice();
    Record("BitmapDrawing", device, {Number(bitmap)});
}

BitmapDrawing::~BitmapDrawing() { ForgetDevice(device); }

Painting::Painting(zeve::NativeWindow window) noexcept
    : painted(window), area(zeve::platform::ClientArea(window)) {
    if (window && !ThePaintingRecorder().refuseDevice) target = NewDevice();
    Record("BeginPaint", target, {Number(window)});
    OpenMemory();
}

Painting::Painting(zeve::NativeWindow window, zeve::NativeDrawing device) noexcept
    : painted(nullptr), target(device), area(zeve::platform::ClientArea(window)) {
    OpenMemory();
}

void Painting::OpenMemory() noexcept {
    if (!target || area.Width() <= 0 || area.Height() <= 0 || ThePaintingRecorder().refuseMemory) return;
    memory = NewDevice();
    SetLayout(memory, LayoutOf(target) & kLayoutMirrored);
}

Painting::~Painting() {
    if (memory) {
        Record("CopyToWindow", target, {Number(memory), 0, 0, area.right, area.bottom});
        ForgetDevice(memory);
    }
    if (painted && target) {
        Record("EndPaint", target, {Number(painted)});
        ForgetDevice(target);
    }
}

zeve::NativeDrawing Painting::Device() const noexcept { return memory ? memory : target; }

std::uint32_t LayoutOf(zeve::NativeDrawing device) noexcept {
    const auto& layouts = ThePaintingRecorder().layouts;
    const auto found = layouts.find(device);
    return found != layouts.end() ? found->second : 0;
}

void SetLayout(zeve::NativeDrawing device, std::uint32_t layout) noexcept {
    if (!device) return;
    Record("SetLayout", device, {layout});
    try {
        ThePaintingRecorder().layouts[device] = layout;
    } catch (const std::bad_alloc&) {
        // The layout stays as it was.
    }
}

bool IsMirrored(zeve::NativeWindow window) noexcept {
    const auto* found = zeve::headless::FindWindow(window);
    return found && (found->extendedStyle & kMirroredWindow) != 0;
}

Rectangle PlaceIn(zeve::NativeWindow window, zeve::NativeWindow other) noexcept {
    Rectangle place{};
    if (const auto* found = zeve::headless::FindWindow(window)) {
        place = {0, 0, found->frame.Width(), found->frame.Height()};
    }
    for (; window != other; window = zeve::headless::FindWindow(window)->parent) {
        const auto* found = zeve::headless::FindWindow(window);
        if (!found) break;
        place = {place.left + found->frame.left, place.top + found->frame.top,
                 place.right + found->frame.left, place.bottom + found->frame.top};
    }
    return place;
}

Color SystemColor(std::int32_t index) noexcept {
    const auto& colors = ThePaintingRecorder().systemColors;
    const auto found = colors.find(index);
    return found != colors.end() ? found->second : static_cast<Color>(0x010101 * index);
}

zeve::NativeBrush StockBrush(std::int32_t index) noexcept {
    return reinterpret_cast<zeve::NativeBrush>(std::uintptr_t{0x40000} + static_cast<std::uintptr_t>(index));
}

OwnedBrush MakePatternBrush(zeve::NativeBitmap bitmap) noexcept {
    Record("MakePatternBrush", nullptr, {Number(bitmap)});
    if (!bitmap || ThePaintingRecorder().refuseBrush) return nullptr;
    try {
        return OwnedBrush(*ThePaintingRecorder().brushes.insert(NewHandle<zeve::NativeBrush>()).first);
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}

void BrushDeleter::operator()(zeve::NativeBrush brush) const noexcept {
    ThePaintingRecorder().brushes.erase(brush);
}

void SetBrushOrigin(zeve::NativeDrawing device, std::int32_t x, std::int32_t y) noexcept {
    if (device) Record("SetBrushOrigin", device, {x, y});
}

void FillArea(zeve::NativeDrawing device, const Rectangle& area, Color color) noexcept {
    if (device) Record("FillColor", device, {area.left, area.top, area.right, area.bottom, color});
}

void FillArea(zeve::NativeDrawing device, const Rectangle& area, zeve::NativeBrush brush) noexcept {
    if (!device || !brush) return;
    Record("FillBrush", device, {area.left, area.top, area.right, area.bottom, Number(brush)});
}

void DrawRoundFrame(zeve::NativeDrawing device, const Rectangle& area, std::int32_t corner, Color frame,
                    Color fill) noexcept {
    if (!device) return;
    Record("DrawRoundFrame", device, {area.left, area.top, area.right, area.bottom, corner, frame, fill});
}

void SetTransparentText(zeve::NativeDrawing device, Color color) noexcept {
    if (device) Record("SetTransparentText", device, {color});
}

OwnedBitmap MakeBitmap(Extent extent) noexcept {
    Record("MakeBitmap", nullptr, {extent.width, extent.height});
    if (extent.width <= 0 || extent.height <= 0 || ThePaintingRecorder().refuseBitmap) return nullptr;
    try {
        const auto bitmap = NewHandle<zeve::NativeBitmap>();
        GivePixels(bitmap, {.extent = extent, .bytes = {}});
        return OwnedBitmap(bitmap);
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}

Extent ExtentOf(zeve::NativeBitmap bitmap) noexcept {
    const auto& bitmaps = ThePaintingRecorder().bitmaps;
    const auto found = bitmaps.find(bitmap);
    return found != bitmaps.end() ? found->second.extent : Extent{};
}

PixelRows PixelsOf(zeve::NativeBitmap bitmap) noexcept {
    const auto found = ThePaintingRecorder().bitmaps.find(bitmap);
    if (found == ThePaintingRecorder().bitmaps.end()) return {};
    BitmapRecord& record = found->second;
    PixelRows rows{record.bytes.data(), PitchOf(record), record.extent.width, record.extent.height,
                   record.pixelBytes};
    if (record.isBottomUp) {
        rows.top += rows.pitch * (rows.height - 1);
        rows.pitch = -rows.pitch;
    }
    return rows;
}

void DrawBitmap(zeve::NativeDrawing device, const Rectangle& area, zeve::NativeBitmap bitmap) noexcept {
    if (!device || !bitmap) return;
    Record("DrawBitmap", device, {area.left, area.top, area.right, area.bottom, Number(bitmap)});
}

void StretchBitmap(zeve::NativeDrawing device, const Rectangle& area, zeve::NativeBitmap bitmap) noexcept {
    if (!device || !bitmap) return;
    Record("StretchBitmap", device, {area.left, area.top, area.right, area.bottom, Number(bitmap)});
}

void BlendBitmap(zeve::NativeDrawing device, const Rectangle& area, zeve::NativeBitmap bitmap,
                 std::uint8_t alpha) noexcept {
    if (!device || !bitmap) return;
    Record("BlendBitmap", device, {area.left, area.top, area.right, area.bottom, Number(bitmap), alpha});
}

DevicePixels::DevicePixels(zeve::NativeDrawing onDevice, const Rectangle& ofDevice) noexcept
    : device(onDevice), part(ofDevice) {
    if (!device || part.Width() <= 0 || part.Height() <= 0) return;
    Record("ReadPixels", device, {part.left, part.top, part.right, part.bottom});
    bitmap = MakeBitmap({part.Width(), part.Height()});
    rows = PixelsOf(bitmap.get());
    if (!rows.top) return;
    std::ranges::fill(ThePaintingRecorder().bitmaps[bitmap.get()].bytes, ThePaintingRecorder().surface);
}

void DevicePixels::Write() noexcept {
    if (!rows.top) return;
    Record("WritePixels", device, {part.left, part.top, part.right, part.bottom});
    try {
        ThePaintingRecorder().written = ThePaintingRecorder().bitmaps[bitmap.get()].bytes;
    } catch (const std::bad_alloc&) {
        ThePaintingRecorder().written.clear();
    }
}

} // namespace brixen::pvn::pvn_workflow::platform
