#include "frame/worker_thread.h"

#include "frame/log.h"

#include <atomic>

namespace brixen::pvn {
namespace {

// Set once a new thread has read the slot, which may be overwritten, or freed with its record, right after.
std::atomic<bool> gSlotTaken = false;

unsigned long RunWorker(void* argument) {
    const PavaneContext::ThreadSlot slot = *static_cast<const PavaneContext::ThreadSlot*>(argument);
    gSlotTaken = true;
    try {
        return slot.threadEntry(slot.threadArg, slot.threadCallback);
    } catch (...) {
        return kStatusException;
    }
}

} // namespace

void LetGoOfWorker(PavaneContext& context) noexcept {
    if (context.threadHandle) CloseThread(context.threadHandle);
    context.threadHandle = nullptr;
}

Status Pavane_Pri_RunPlatformThread(WorkerEntry entry, void* arg, WorkerCallback callback) noexcept {
    if (!entry) return kStatusNullArgument;
    if (!gPavaneContext) return kStatusNotInitialized;
    PavaneContext& context = *gPavaneContext;
    context.slot = {entry, arg, callback};
    LetGoOfWorker(context);
    gSlotTaken = false;
    context.threadHandle = StartThread(RunWorker, &context.slot);
    if (!context.threadHandle) {
        LogRequirement(kThreadRefused);
        return kStatusNoThread;
    }
    // Not the atomic's own wait: without help from the system it can sleep through the notice.
    while (!gSlotTaken) YieldThread();
    return kStatusSuccess;
}

} // namespace brixen::pvn
