// The timer by which a dialog looks twice a second whether its worker has finished.
#pragma once

#include "toolkit/platform/native_types.h"
#include "workflow/context/workflow_object.h"

#include <cstdint>

namespace brixen::zeve {
class ZeveDialog;
}

namespace brixen::pvn::pvn_workflow {

inline constexpr std::uint32_t kProgressTimer = 1;    // of the dialog's window
inline constexpr std::uint32_t kProgressPeriod = 500; // milliseconds

class PVNProgressTimer final : public PVNWorkFlowObject<zeve::ZeveDialog> {
public:
    PVNProgressTimer() : PVNWorkFlowObject(nullptr) {}

    // Sets the timer on the window of the dialog, which is borrowed. Without a window there is no timer.
    // Returns false if the system refuses one.
    [[nodiscard]] bool Start(zeve::ZeveDialog* dialog);
    // Harmless without a timer, and after the end of the dialog.
    void Stop() noexcept;

    // 0 until Start and after Stop. Kept: the timer itself may be over, because the poll stops it by its
    // number.
    std::uint32_t TimerId() const { return timerId; }

private:
    zeve::NativeWindow window = nullptr;
    std::uint32_t timerId = 0;
};

} // namespace brixen::pvn::pvn_workflow
