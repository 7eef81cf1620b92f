#include "frame/pavane_context.h"

namespace brixen::pvn {

PavaneContext* gPavaneContext = nullptr;
std::atomic<Status> gLastError = kStatusSuccess;
std::uint16_t gPreloadedWorkflow = 0;

void SetWorkflowPhase(std::uint32_t phase) noexcept {
    if (gPavaneContext) gPavaneContext->workflowPhase = phase;
}

} // namespace brixen::pvn
