#include "workflow/panes/page_pane.h"

#include "toolkit/dialog/zeve_dialog.h"
#include "toolkit/platform/toolkit_platform.h"
#include "workflow/panes/pane_helpers.h"

namespace brixen::pvn::pvn_workflow {

void PagePane::Enter() {
    SetWindowTitle(traits.titleKey, zeve::ZeveTopWindow(ref));
    // The button that had the focus on the previous pane may still be drawn as the default one.
    for (const std::uint16_t button : traits.buttons) {
        if (button != traits.defaultButton) MakeNormalButton(ref, button);
    }
    if (traits.defaultButton != kNoButton) MakeDefaultButton(ref, traits.defaultButton);
    SetEnabled(ref, traits.page, true);
    SetVisible(ref, traits.page, true);
    // The empty window of the page would paint over the frames of its fields.
    zeve::platform::ShowOrHide(zeve::platform::ChildWithId(zeve::ZeveTopWindow(ref), traits.page), false);
    for (const std::uint16_t button : traits.buttons) SetVisible(ref, button, true);
}

void PagePane::Leave() {
    SetVisible(ref, traits.page, false);
    for (const std::uint16_t button : traits.buttons) SetVisible(ref, button, false);
    SetEnabled(ref, traits.page, false);
}

} // namespace brixen::pvn::pvn_workflow
