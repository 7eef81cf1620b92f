#include "frame/exports/exported_operations.h"

#include "frame/exports/context_record.h"
#include "frame/exports/launcher.h"
#include "frame/exports/preparing.h"
#include "frame/exports/run_mark.h"
#include "frame/frame_state.h"
#include "frame/log.h"
#include "frame/pavane_context.h"
#include "frame/platform/foreign_exceptions.h"

namespace brixen::pvn {
namespace {

Status RefuseHostApp() noexcept {
    LogRequirement(kRefusedHostApp);
    return kStatusBadArgument;
}

// Intentional: a workflow that is prepared already takes the latest status from before the run, whichever
// call left it, and is not prepared again.
Status PrepareForRun(RequestedWorkflow& workflow, Status statusBefore) {
    if (!IsPrepared(workflow.number)) return Prepare(workflow);
    return statusBefore == kStatusSuccess ? LookUp(workflow) : statusBefore;
}

Status RunInContext(std::uint16_t number, void* parentWindow, Status statusBefore) {
    RequestedWorkflow workflow{.number = number};
    const Status prepared = StoreLastError(PrepareForRun(workflow, statusBefore));
    if (prepared != kStatusSuccess) {
        LogRequirement(kRunNotPrepared, prepared);
        return prepared;
    }
    if (!workflow.row) return kStatusBadArgument;
    return LaunchWorkflow(*workflow.row, workflow.language, parentWindow);
}

struct MarkedRun {
    std::uint16_t number;
    void* parentWindow;
    Status statusBefore; // the latest status from before the mark
    Status status = kStatusException;
};

Status RunWithMark(const MarkedRun& run) {
    if (!GetFrameState().gPavaneContext) {
        LogRequirement(kRunWithoutContext);
        return kStatusNotInitialized;
    }
    return RunInContext(run.number, run.parentWindow, run.statusBefore);
}

void MakeRun(void* argument) {
    MarkedRun& run = *static_cast<MarkedRun*>(argument);
    run.status = StoreLastError(RunWithMark(run));
}

void UndoRun(void*) { AbandonRun(); }

} // namespace

Status Initialize(std::int32_t hostApp, std::uint32_t hostOptions) {
    OpenLog(false); // first and always, so that a refused call leaves its trace
    if (GetFrameState().gPavaneContext) {
        LogRequirement(kAlreadyInitialized);
        return StoreLastError(kStatusSuccess);
    }
    const Status status = hostApp == 2 ? RefuseHostApp() : MakeContext(hostApp, hostOptions);
    if (status == kStatusSuccess)
        PinLibrary();
    else
        FreeContextAndCloseLog();
    return StoreLastError(status);
}

Status PreloadWorkflow(std::uint16_t number) {
    if (IsRunUnderWay()) return StoreLastError(kStatusBadArgument);
    if (!GetFrameState().gPavaneContext) {
        LogRequirement(kPreloadWithoutContext);
        return StoreLastError(kStatusNotInitialized);
    }
    if (IsPrepared(number)) return GetFrameState().gLastError;
    RequestedWorkflow workflow{.number = number};
    return StoreLastError(Prepare(workflow));
}

void AbandonRun() noexcept {
    GetLaunchers().abandonRun();
    StoreLastError(kStatusException);
    GetFrameState().gPreloadedWorkflow = 0;
    ClearRunMark();
}

Status RunWorkflow(std::uint16_t number, void* parentWindow) {
    const RunMark mark;
    if (!mark.IsOurs()) return StoreLastError(kStatusBadArgument);
    MarkedRun run{number, parentWindow, mark.StatusBefore()};
    CallUndoingWhenLeft(MakeRun, &run, UndoRun);
    GetFrameState().gPreloadedWorkflow = 0; // so that the next run prepares again
    return run.status;
}

void Terminate() noexcept {
    if (!DeferTerminate()) FreeContextAndCloseLog();
}

} // namespace brixen::pvn
