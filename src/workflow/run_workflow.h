// The engine's entry: runs one workflow from a launcher's bag, on the caller's thread, to its end.
#pragma once

#include "values/storage.h"
#include "workflow/context/workflow_context.h"

#include <cstdint>
#include <memory>

namespace brixen::pvn::pvn_workflow {

class PVNWorkFlow;

// Makes the two objects of a run.
struct WorkFlowMaker {
    std::unique_ptr<PVNWorkFlowContext> (*makeContext)(T_StorageInterface& bag);
    // `context` is what makeContext has made.
    std::unique_ptr<PVNWorkFlow> (*makeWorkFlow)(PVNWorkFlowContext& context);
};

// RunWorkFlowFromBag for the workflow that `maker` makes. This is the exception boundary of a run: what a
// workflow, a pane, a handler or a window of the application throws ends here.
[[nodiscard]] std::uint16_t MakeAndRunWorkFlow(T_StorageInterface& bag, const WorkFlowMaker& maker) noexcept;

// Runs a W on a W::Context, which is PVNWorkFlowContext if W names no other.
//
// Returns 0 when the run ended in kWFState_Done, even with another result in the bag. Otherwise returns the
// Long under PvnWFKey_WorkFlowResult, which is kStatusUserCancel until the run sets it. The bag then holds
// what the run has set.
//
// Returns kStatusException after any exception, without a log line of its own. The parent window is enabled
// again and everything that the run made is destroyed. Kept: ShutDownResources is not called then.
template <class W>
[[nodiscard]] std::uint16_t RunWorkFlowFromBag(T_StorageInterface& bag) noexcept {
    using Context = typename W::Context;
    static constexpr WorkFlowMaker kMaker = {
        [](T_StorageInterface& ofRun) -> std::unique_ptr<PVNWorkFlowContext> {
            return std::make_unique<Context>(ofRun);
        },
        [](PVNWorkFlowContext& context) -> std::unique_ptr<PVNWorkFlow> {
            return std::make_unique<W>(static_cast<Context&>(context));
        },
    };
    return MakeAndRunWorkFlow(bag, kMaker);
}

} // namespace brixen::pvn::pvn_workflow
