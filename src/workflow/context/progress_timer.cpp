#include "workflow/context/progress_timer.h"

#include "toolkit/dialog/zeve_dialog.h"
#include "toolkit/platform/toolkit_platform.h"

namespace brixen::pvn::pvn_workflow {

bool PVNProgressTimer::Start(zeve::ZeveDialog* dialog) {
    ref = dialog;
    timerId = kProgressTimer;
    window = dialog ? zeve::ZeveTopWindow(dialog) : nullptr;
    return !window || zeve::platform::StartTimer(window, timerId, kProgressPeriod);
}

void PVNProgressTimer::Stop() noexcept {
    if (timerId == 0) return;
    zeve::platform::StopTimer(window, timerId);
    timerId = 0;
}

} // namespace brixen::pvn::pvn_workflow
