#include "workflow/controls/panel_renderer.h"

#include <algorithm>
#include <cstddef>

namespace brixen::pvn::pvn_workflow {

namespace {

constexpr platform::Color kGround = 0x8080FF;    // shows where the background bitmap is too small
constexpr std::int32_t kMargin = 2, kBorder = 1; // pixels

// Gray pixels in premultiplied form.
struct Tone {
    std::byte color, alpha;
};
constexpr Tone kClear{std::byte{0}, std::byte{0}};
constexpr Tone kBlackAt20Percent{std::byte{0}, std::byte{51}};
constexpr Tone kWhiteAt85Percent{std::byte{217}, std::byte{217}};

// Returns how many pixels lie between a pixel and the nearest edge.
std::int32_t DistanceToEdge(std::int32_t x, std::int32_t y, const platform::PixelRows& frame) {
    return std::min(std::min(x, frame.width - 1 - x), std::min(y, frame.height - 1 - y));
}

Tone ToneAt(std::int32_t distance) {
    if (distance < kMargin) return kClear;
    return distance < kMargin + kBorder ? kBlackAt20Percent : kWhiteAt85Percent;
}

} // namespace

void FillPanelFrame(const platform::PixelRows& frame) {
    if (frame.pixelBytes != 4) return;
    for (std::int32_t y = 0; y < frame.height; ++y) {
        std::byte* pixel = frame.Row(y).data();
        for (std::int32_t x = 0; x < frame.width; ++x, pixel += 4) {
            const Tone tone = ToneAt(DistanceToEdge(x, y, frame));
            std::fill_n(pixel, 3, tone.color);
            pixel[3] = tone.alpha;
        }
    }
}

platform::OwnedBitmap PanelRenderer::Render(std::uint32_t layout) const {
    platform::OwnedBitmap panel = platform::MakeBitmap(size);
    if (!panel) return nullptr;
    const platform::BitmapDrawing drawing(panel.get());
    platform::SetLayout(drawing.Device(), layout);
    Draw(drawing.Device());
    return panel;
}

void PanelRenderer::Draw(zeve::NativeDrawing device) const {
    const zeve::platform::Rectangle all{0, 0, size.width, size.height};
    platform::FillArea(device, all, kGround);
    platform::DrawBitmap(device, all, background);
    BlendFrame(device);
}

void PanelRenderer::BlendFrame(zeve::NativeDrawing device) const {
    const platform::OwnedBitmap frame = platform::MakeBitmap(size);
    if (!frame) return;
    FillPanelFrame(platform::PixelsOf(frame.get()));
    platform::BlendBitmap(device, {0, 0, size.width, size.height}, frame.get(), alpha);
}

} // namespace brixen::pvn::pvn_workflow
