// Keeps a window from drawing while a pane comes or goes, so that its changes appear at once. Process-wide in
// effect: held only for the time of the pane's call.
#pragma once

#include "toolkit/platform/toolkit_platform.h"

namespace brixen::pvn::pvn_workflow {

class ScreenLock {
public:
    explicit ScreenLock(zeve::NativeWindow window) { zeve::platform::LockUpdates(window); }
    ~ScreenLock() { zeve::platform::UnlockUpdates(); }
    ScreenLock(const ScreenLock&) = delete;
    ScreenLock& operator=(const ScreenLock&) = delete;
};

} // namespace brixen::pvn::pvn_workflow
