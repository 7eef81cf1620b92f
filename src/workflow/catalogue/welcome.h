// Workflow 1, Welcome: the product's assistant introduces itself in three panes.
#pragma once

#include "workflow/workflow.h"

namespace brixen::pvn::pvn_workflow {

// Welcome, Highlights, Ready. Back is on all panes but the first, Done on the last. Quit is on each: after
// its alert it ends the run with kStatusUserQuit.
class PVNWelcomeWorkFlow final : public PVNWorkFlow {
public:
    using PVNWorkFlow::PVNWorkFlow;

    void Build(bool demo) override;

private:
    void SetTransitions();
    void SetPanes();
};

} // namespace brixen::pvn::pvn_workflow
