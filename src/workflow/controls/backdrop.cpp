#include "workflow/controls/backdrop.h"

namespace brixen::pvn::pvn_workflow {

namespace {

using zeve::platform::Extent;
using zeve::platform::Rectangle;

constexpr std::int32_t kTolerance = 4;    // pixels
constexpr std::int32_t kHighControl = 80; // pixels

bool IsNear(std::int32_t one, std::int32_t other) {
    const std::int64_t difference = std::int64_t{one} - other;
    return difference >= -kTolerance && difference <= kTolerance;
}

std::int32_t CenteredAt(std::int32_t extent, std::int32_t room) {
    return room > extent ? (room - extent) / 2 : 0;
}

} // namespace

BackdropPlace PlaceBackdrop(Extent bitmap, Extent client) {
    if (!IsNear(bitmap.width, client.width) || !IsNear(bitmap.height, client.height)) {
        return {{0, 0, client.width, client.height}, true};
    }
    const std::int32_t left = CenteredAt(bitmap.width, client.width);
    const std::int32_t top = CenteredAt(bitmap.height, client.height);
    return {{left, top, left + bitmap.width, top + bitmap.height}, false};
}

platform::OwnedBitmap RenderBackdrop(PanelRenderer& panel, zeve::NativeWindow window) {
    const Rectangle client = zeve::platform::ClientArea(window);
    panel.SetSize({client.Width(), client.Height()});
    return panel.Render(platform::IsMirrored(window) ? platform::kLayoutMirrored : 0);
}

void DrawBackdrop(zeve::NativeDrawing device, const Rectangle& client, zeve::NativeBitmap panelBitmap) {
    if (!panelBitmap) return;
    const BackdropPlace place =
        PlaceBackdrop(platform::ExtentOf(panelBitmap), {client.Width(), client.Height()});
    const platform::UnmirroredDevice unmirrored(device); // the bitmap is reflected already
    if (place.isStretched) {
        platform::StretchBitmap(device, place.area, panelBitmap);
    } else {
        platform::DrawBitmap(device, place.area, panelBitmap);
    }
}

zeve::NativeBrush BrushBehind(zeve::NativeWindow control, zeve::NativeDrawing device,
                              zeve::NativeWindow dialog, zeve::NativeBrush panelBrush) {
    const Rectangle place = platform::PlaceIn(control, dialog);
    if (zeve::platform::OuterFrame(control).Height() >= kHighControl) {
        return platform::StockBrush(platform::kStockWhiteBrush);
    }
    platform::SetBrushOrigin(device, -place.left, -place.top);
    return panelBrush;
}

} // namespace brixen::pvn::pvn_workflow
