#include "frame/worker_thread.h"

#include "frame/exception_boundary.h"
#include "frame/frame_state.h"
#include "frame/log.h"

namespace brixen::pvn {
namespace {

unsigned long RunWorker(void* argument) {
    const PavaneContext::ThreadSlot slot = *static_cast<const PavaneContext::ThreadSlot*>(argument);
    GetFrameState().isSlotTaken = true;
    return StatusAtBoundary([&] { return slot.threadEntry(slot.threadArg, slot.threadCallback); });
}

} // namespace

Status Pavane_Pri_RunPlatformThread(WorkerEntry entry, void* arg, WorkerCallback callback) noexcept {
    if (!entry) return kStatusNullArgument;
    FrameState& frame = GetFrameState();
    if (!frame.gPavaneContext) return kStatusNotInitialized;
    PavaneContext& context = *frame.gPavaneContext;
    context.slot = {entry, arg, callback};
    if (context.threadHandle) CloseThread(context.threadHandle);
    frame.isSlotTaken = false;
    context.threadHandle = StartThread(RunWorker, &context.slot);
    if (!context.threadHandle) {
        LogRequirement(kThreadRefused);
        return kStatusNoThread;
    }
    // Not the atomic's own wait: without help from the system it can sleep through the notice.
    while (!frame.isSlotTaken) YieldThread();
    return kStatusSuccess;
}

} // namespace brixen::pvn
