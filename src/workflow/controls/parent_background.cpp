#include "workflow/controls/parent_background.h"

#include "toolkit/message_numbers.h"
#include "toolkit/platform/toolkit_platform.h"

namespace brixen::pvn::pvn_workflow {

void FillAsParent(zeve::NativeDrawing device, const zeve::platform::Rectangle& area,
                  zeve::NativeWindow control) {
    const std::intptr_t answer = zeve::platform::Send(
        zeve::platform::ParentOf(control), zeve::kMessageColorStatic,
        reinterpret_cast<std::uintptr_t>(device), reinterpret_cast<std::intptr_t>(control));
    if (const auto brush = reinterpret_cast<zeve::NativeBrush>(answer)) {
        platform::FillArea(device, area, brush);
    } else {
        platform::FillArea(device, area, platform::SystemColor(platform::kColorFace));
    }
}

} // namespace brixen::pvn::pvn_workflow
