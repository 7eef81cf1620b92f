// The machine of a workflow with a dialog. It is in this room because it runs the pane host; the machines
// below know neither panes nor hosts.
#pragma once

#include "workflow/machine/nav_state_machine.h"

namespace brixen::pvn::pvn_workflow {

class PVNPaneHost;

class PVNDialogStateMachine final : public PVNNavStateMachine {
public:
    // The host is borrowed and must outlive this.
    explicit PVNDialogStateMachine(PVNPaneHost& paneHost) : host(paneHost) {}

    // Makes the host the delegate of all states, opens its dialog, enters startState and runs the dialog to
    // its end. Destroys the dialog on every way out. Returns whether the end was kWFState_Done. Throws
    // std::logic_error without a context in the wildcard row.
    bool Run() override;

private:
    PVNPaneHost& host;
};

} // namespace brixen::pvn::pvn_workflow
