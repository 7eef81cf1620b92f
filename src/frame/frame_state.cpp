#include "frame/frame_state.h"

#include "frame/pavane_context.h"

namespace brixen::pvn {

FrameState& GetFrameState() noexcept {
    static constinit FrameState state;
    return state;
}

void ResetFrameState() noexcept {
    FrameState& state = GetFrameState();
    if (state.gPavaneContext) ReleaseHoldings(*state.gPavaneContext);
    delete state.gPavaneContext;
    state.gPavaneContext = nullptr;
    if (state.gLogStream) std::fclose(state.gLogStream);
    state.gLogStream = nullptr;
    state.gStopWatchStart = 0;
    state.gLastError = kStatusSuccess;
    state.gPreloadedWorkflow = 0;
    state.runState = RunState::kIdle;
    state.isSlotTaken = false;
    state.testLaunchers = nullptr;
}

void SetWorkflowPhase(std::uint32_t phase) noexcept {
    if (PavaneContext* const context = GetFrameState().gPavaneContext) context->workflowPhase = phase;
}

Status StoreLastError(Status status) noexcept {
    GetFrameState().gLastError = status;
    return status;
}

} // namespace brixen::pvn
