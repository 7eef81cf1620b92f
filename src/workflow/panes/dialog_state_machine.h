// The machine of a workflow with a dialog: the only one that is instantiated.
#pragma once

#include "workflow/machine/nav_state_machine.h"

namespace brixen::pvn::pvn_workflow {

class PVNPaneHost;

class PVNDialogStateMachine final : public PVNNavStateMachine {
public:
    // The host is not owned and must outlive this.
    explicit PVNDialogStateMachine(PVNPaneHost& paneHost) : host(paneHost) {}

    // Opens the host's dialog, enters startState and runs the dialog to its end. The dialog is closed also
    // when an exception leaves.
    bool Run() override;

private:
    PVNPaneHost& host;
};

} // namespace brixen::pvn::pvn_workflow
