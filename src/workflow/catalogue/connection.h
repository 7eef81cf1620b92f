// Workflow 4, Connection: the user chooses the way to the internet and tests it.
#pragma once

#include "workflow/catalogue/connection_data.h"
#include "workflow/workflow.h"

namespace brixen::pvn::pvn_workflow {

// Settings, Testing, then Reached or Unreached. Done ends the run as done, Cancel with kStatusUserCancel, and
// Esc on Unreached with the status of the failure. The settings that were tested stay in the bag.
class PVNConnectionWorkFlow final : public PVNWorkFlow {
public:
    using Context = ConnectionContext;
    using PVNWorkFlow::PVNWorkFlow;

    void Build(bool demo) override;

private:
    void SetTransitions();
    void SetPanes(bool demo);
};

} // namespace brixen::pvn::pvn_workflow
