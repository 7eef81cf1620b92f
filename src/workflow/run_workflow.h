// The engine's entry: runs one workflow from a launcher's bag, on the caller's thread, to its end.
#pragma once

#include "values/storage.h"

#include <cstdint>
#include <memory>

namespace brixen::pvn::pvn_workflow {

class PVNWorkFlow;
class PVNWorkFlowContext;

using WorkFlowMaker = std::unique_ptr<PVNWorkFlow> (*)(PVNWorkFlowContext& context);

// RunWorkFlowFromBag for the workflow that `make` returns. This is the exception boundary of a run: what a
// workflow, a pane, a handler or a window of the application throws ends here.
[[nodiscard]] std::uint16_t MakeAndRunWorkFlow(T_StorageInterface& bag, WorkFlowMaker make) noexcept;

// Returns 0 when the run ended in kWFState_Done, even with another result in the bag. Otherwise returns the
// Long under PvnWFKey_WorkFlowResult, which is kStatusUserCancel until the run sets it. The bag then holds
// what the run has set.
//
// Returns kStatusException after any exception, without a log line of its own. The parent window is enabled
// again and everything that the run made is destroyed. Kept: ShutDownResources is not called then.
template <class W>
[[nodiscard]] std::uint16_t RunWorkFlowFromBag(T_StorageInterface& bag) noexcept {
    return MakeAndRunWorkFlow(bag, [](PVNWorkFlowContext& context) -> std::unique_ptr<PVNWorkFlow> {
        return std::make_unique<W>(context);
    });
}

} // namespace brixen::pvn::pvn_workflow
