// Workflow 1, Welcome: what the product's assistant does, its highlights, and the way into the work.
#pragma once

#include "workflow/workflow.h"

namespace brixen::pvn::pvn_workflow {

// Welcome, Highlights, Ready: three panes in a row. Back on all but the first, Done on the last, Quit
// (kStatusUserQuit, after its alert) on each.
class PVNWelcomeWorkFlow final : public PVNWorkFlow {
public:
    using PVNWorkFlow::PVNWorkFlow;

    void Build(bool demo) override;

private:
    void SetTransitions();
    void SetPanes();
};

} // namespace brixen::pvn::pvn_workflow
