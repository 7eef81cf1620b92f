// Draws the panel of a dialog, a background bitmap with a frame laid over it, into a bitmap of a wanted size.
#pragma once

#include "workflow/platform/painting.h"

#include <cstdint>

namespace brixen::pvn::pvn_workflow {

// Fills a bitmap of 4 bytes a pixel with the frame in premultiplied form: a clear margin of 2 pixels, a
// border of one pixel in black at 20 percent, and white at 85 percent inside.
void FillPanelFrame(const platform::PixelRows& frame);

class PanelRenderer {
public:
    // The caller keeps the background bitmap, which may be null. `frameAlpha` weakens the frame: 255 is all
    // of it, 0 shows none.
    PanelRenderer(zeve::NativeBitmap backgroundBitmap, zeve::platform::Extent extent, std::uint8_t frameAlpha)
        : background(backgroundBitmap), size(extent), alpha(frameAlpha) {}

    // Sets the size in pixels. What was rendered before keeps its own.
    void SetSize(zeve::platform::Extent extent) { size = extent; }
    // Returns the panel at its size as a new bitmap, drawn for a device of that layout: reflected for a
    // mirrored one. Null if the system refuses.
    [[nodiscard]] platform::OwnedBitmap Render(std::uint32_t layout) const;

private:
    void Draw(zeve::NativeDrawing device) const;
    void BlendFrame(zeve::NativeDrawing device) const;

    zeve::NativeBitmap background; // borrowed
    zeve::platform::Extent size;
    std::uint8_t alpha; // of the frame
};

} // namespace brixen::pvn::pvn_workflow
