// Paints the backdrop of a dialog, and makes the brush that continues it behind text controls.
#pragma once

#include "workflow/controls/panel_renderer.h"
#include "workflow/platform/painting.h"

#include <cstdint>

namespace brixen::pvn::pvn_workflow {

// The panel renderer of a backdrop is made for this size, until the client area is known.
inline constexpr zeve::platform::Extent kFirstPanelSize{10, 10};
// A backdrop shows the background bitmap alone.
inline constexpr std::uint8_t kNoFrame = 0;

// Where the backdrop's bitmap is drawn in a client area of another size.
struct BackdropPlace {
    zeve::platform::Rectangle area;
    bool isStretched = false;
};

// Centers a bitmap whose size differs by at most 4 pixels in both directions, at half the difference or at 0
// where the bitmap is larger. Any other is stretched to the whole client area.
BackdropPlace PlaceBackdrop(zeve::platform::Extent bitmap, zeve::platform::Extent client);

// Returns the background bitmap, which may be null, with its frame for the client area of the window: as it
// looks on the screen, so in a mirrored window reflected. Null if the system refuses.
[[nodiscard]] platform::OwnedBitmap RenderBackdrop(PanelRenderer& panel, zeve::NativeWindow window);

// Draws a rendered backdrop, which may be null, on a device of its window, whose client area is `client`.
void DrawBackdrop(zeve::NativeDrawing device, const zeve::platform::Rectangle& client,
                  zeve::NativeBitmap panelBitmap);

// Returns the brush for the background of a text control that asks on its device: white for a control at
// least 80 pixels high, else `panelBrush`, with its origin moved so that it continues the backdrop of the
// dialog.
[[nodiscard]] zeve::NativeBrush BrushBehind(zeve::NativeWindow control, zeve::NativeDrawing device,
                                            zeve::NativeWindow dialog, zeve::NativeBrush panelBrush);

} // namespace brixen::pvn::pvn_workflow
