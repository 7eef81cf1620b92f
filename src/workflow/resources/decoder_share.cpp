#include "workflow/resources/decoder_share.h"

#include "workflow/platform/resource_platform.h"
#include "workflow/resources/resource_state.h"

namespace brixen::pvn::pvn_workflow {

bool DecoderShare::Start() {
    if (isHeld) return true;
    ResourceState& state = TheResourceState();
    const std::lock_guard<std::mutex> guard(state.decoderLock);
    if (state.decoderUsers == 0 && !platform::StartDecoder()) return false;
    ++state.decoderUsers;
    return isHeld = true;
}

DecoderShare::~DecoderShare() {
    if (!isHeld) return;
    ResourceState& state = TheResourceState();
    const std::lock_guard<std::mutex> guard(state.decoderLock);
    if (--state.decoderUsers == 0) platform::StopDecoder();
}

} // namespace brixen::pvn::pvn_workflow
