// The engine's entry: runs one workflow from a launcher's bag, on the caller's thread, to its end.
#pragma once

#include "values/storage.h"

#include <cstdint>
#include <memory>

namespace brixen::pvn::pvn_workflow {

class PVNWorkFlow;
class PVNWorkFlowContext;

using WorkFlowMaker = std::unique_ptr<PVNWorkFlow> (*)(PVNWorkFlowContext& context);

// RunWorkFlowFromBag for a workflow that `make` makes.
std::uint16_t RunWorkFlow(T_StorageInterface& bag, WorkFlowMaker make) noexcept;

// Returns 0 when the run ended in kWFState_Done, whatever stands under PvnWFKey_WorkFlowResult, and the Long
// under that key otherwise: kStatusUserCancel until something decides, and without one. Any exception gives
// kStatusException and no log line; the parent window is enabled again and everything the run made is
// destroyed, but ShutDownResources is not called then (meant). What the run set in its context is in the bag
// afterward.
template <class W>
std::uint16_t RunWorkFlowFromBag(T_StorageInterface& bag) noexcept {
    return RunWorkFlow(bag, [](PVNWorkFlowContext& context) -> std::unique_ptr<PVNWorkFlow> {
        return std::make_unique<W>(context);
    });
}

} // namespace brixen::pvn::pvn_workflow
