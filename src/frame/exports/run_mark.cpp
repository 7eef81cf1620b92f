#include "frame/exports/run_mark.h"

#include "frame/exports/context_record.h"
#include "frame/frame_state.h"

namespace brixen::pvn {
namespace {

// Returns whether the state was `expected` and is `next` now.
bool ChangeRunState(RunState expected, RunState next) noexcept {
    return GetFrameState().runState.compare_exchange_strong(expected, next);
}

} // namespace

// The status is read first: from the mark on, a refused call may overwrite the word.
RunMark::RunMark() noexcept
    : statusBefore(GetFrameState().gLastError), isOurs(ChangeRunState(RunState::kIdle, RunState::kRunning)) {}

RunMark::~RunMark() {
    if (isOurs) ClearRunMark();
}

void ClearRunMark() noexcept {
    std::atomic<RunState>& state = GetFrameState().runState;
    if (ChangeRunState(RunState::kRunning, RunState::kIdle) || state == RunState::kIdle) return;
    FreeContextAndCloseLog();
    state = RunState::kIdle;
}

bool IsRunUnderWay() noexcept { return GetFrameState().runState != RunState::kIdle; }

bool DeferTerminate() noexcept {
    return ChangeRunState(RunState::kRunning, RunState::kRunningThenTerminate) || IsRunUnderWay();
}

} // namespace brixen::pvn
