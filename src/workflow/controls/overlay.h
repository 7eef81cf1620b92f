// The logo and the product label that are laid over a dialog's backdrop.
#pragma once

#include "workflow/platform/painting.h"

#include <cstdint>

namespace brixen::pvn::pvn_workflow {

// Places in a client area, in pixels from its left edge on the screen.
zeve::platform::Rectangle LogoArea(zeve::platform::Extent logo, zeve::platform::Extent client);
zeve::platform::Rectangle LabelArea(zeve::platform::Extent label, zeve::platform::Extent client,
                                    bool isMirrored);

struct OverlayBitmaps {
    zeve::NativeBitmap logo = nullptr; // at the top right; with alpha, or opaque
    zeve::NativeBitmap label =
        nullptr; // at the top left, in a mirrored window at the top right; white is clear
};

// Lays logo and label, each null or of 24 or 32 bits a pixel to be seen, over what the device shows in a
// client area. Neither is ever reflected. The device is read once and written once.
void DrawOverlay(zeve::NativeDrawing device, const zeve::platform::Rectangle& client,
                 const OverlayBitmaps& bitmaps);

} // namespace brixen::pvn::pvn_workflow
