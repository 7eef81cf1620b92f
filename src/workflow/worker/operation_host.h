// The pane host of a workflow with operations: it starts the worker of a busy pane, looks twice a second
// whether it has finished, and has a handler for Cancel. A concrete host names it as its `Base`:
//
//     class MyHost final : public PVNConcreteHost<MyHost, PagePane, OperationHost>
//
// and its table has the row {kCancelButton, &MyHost::OnCancelOfBusyPane}.
#pragma once

#include "workflow/panes/pane_host.h"

#include <cstdint>

namespace brixen::pvn::pvn_workflow {

class BusyPane;

class OperationHost : public PVNPaneHost {
public:
    using PVNPaneHost::PVNPaneHost;

    // Takes WM_TIMER of the dialog, whatever its number, and the worker-start messages.
    bool ProcessWindowMessage(const WindowMessage& message, std::intptr_t& result) override;

    // Asks the worker of the busy pane to stop and delivers "OKButton". Does nothing on other panes, and
    // where the run offers no cancel.
    std::intptr_t OnCancelOfBusyPane();

private:
    std::intptr_t OnTimer();
    void OnWorkerStart();
    std::intptr_t TakeWorkersEnd();
    void ShowFinished();
    BusyPane* CurrentBusyPane() const;
};

} // namespace brixen::pvn::pvn_workflow
