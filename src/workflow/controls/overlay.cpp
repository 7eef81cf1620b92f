#include "workflow/controls/overlay.h"

#include "workflow/controls/pixel_blend.h"

#include <algorithm>

namespace brixen::pvn::pvn_workflow {

namespace {

using platform::PixelRows;
using zeve::platform::Extent;
using zeve::platform::Rectangle;

constexpr std::int32_t kLogoRight = 7, kLogoTop = 10; // from the edges of the client area

Rectangle AreaAt(std::int32_t left, std::int32_t top, Extent extent) {
    return {left, top, left + extent.width, top + extent.height};
}

bool IsEmpty(const Rectangle& area) { return area.Width() <= 0 || area.Height() <= 0; }

Rectangle Common(const Rectangle& one, const Rectangle& other) {
    return {std::max(one.left, other.left), std::max(one.top, other.top), std::min(one.right, other.right),
            std::min(one.bottom, other.bottom)};
}

// Returns the smallest area that has both; an empty one counts for nothing.
Rectangle Around(const Rectangle& one, const Rectangle& other) {
    if (IsEmpty(one)) return other;
    if (IsEmpty(other)) return one;
    return {std::min(one.left, other.left), std::min(one.top, other.top), std::max(one.right, other.right),
            std::max(one.bottom, other.bottom)};
}

Extent ExtentOf(const PixelRows& rows) { return {rows.width, rows.height}; }

} // namespace

Rectangle LogoArea(Extent logo, Extent client) {
    return AreaAt(client.width - logo.width - kLogoRight, kLogoTop, logo);
}

Rectangle LabelArea(Extent label, Extent client, bool isMirrored) {
    return AreaAt(isMirrored ? client.width - label.width : 0, 0, label);
}

void DrawOverlay(zeve::NativeDrawing device, const Rectangle& client, const OverlayBitmaps& bitmaps) {
    const PixelRows logo = platform::PixelsOf(bitmaps.logo), label = platform::PixelsOf(bitmaps.label);
    if (!device || (!logo.top && !label.top)) return;
    const platform::UnmirroredDevice unmirrored(device);
    const Extent extent{client.right, client.bottom};
    const Rectangle logoArea = LogoArea(ExtentOf(logo), extent);
    const Rectangle labelArea = LabelArea(ExtentOf(label), extent, unmirrored.WasMirrored());
    const Rectangle changed = Around(Common(logoArea, client), Common(labelArea, client));
    platform::DevicePixels pixels(device, changed);
    LayBlended(pixels.Rows(), logo, logoArea.left - changed.left, logoArea.top - changed.top);
    LayWithoutWhite(pixels.Rows(), label, labelArea.left - changed.left, labelArea.top - changed.top);
    pixels.Write();
}

} // namespace brixen::pvn::pvn_workflow
