// The background of a control that is painted by hand, as its parent wants it.
#pragma once

#include "toolkit/platform/native_types.h"
#include "workflow/platform/painting.h"

namespace brixen::pvn::pvn_workflow {

// Fills an area of a control's device with the brush that the parent answers for a text control; with the
// face color if it answers none. The parent may also set the colors and the brush origin of the device.
void FillAsParent(zeve::NativeDrawing device, const zeve::platform::Rectangle& area,
                  zeve::NativeWindow control);

} // namespace brixen::pvn::pvn_workflow
