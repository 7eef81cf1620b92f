#include "frame/pavane_context.h"

#include "frame/frame_state.h"

namespace brixen::pvn {

void ReleaseHoldings(PavaneContext& context) noexcept {
    delete context.auxObject;
    context.auxObject = nullptr;
    if (context.threadHandle) CloseThread(context.threadHandle);
    context.threadHandle = nullptr;
}

void SetWorkflowPhase(std::uint32_t phase) noexcept {
    if (PavaneContext* const context = GetFrameState().gPavaneContext) context->workflowPhase = phase;
}

} // namespace brixen::pvn
