#include "workflow/panes/dialog_state_machine.h"

#include "values/scope_guard.h"
#include "workflow/panes/pane_host.h"

#include <stdexcept>

namespace brixen::pvn::pvn_workflow {

bool PVNDialogStateMachine::Run() {
    SetProperty(kWFState_Any, kPropertyActionDelegate, static_cast<PVNActionDelegate*>(&host));
    void* context = nullptr;
    GetProperty(kWFState_Any, kPropertyWorkflowContext, context);
    if (!context) throw std::logic_error("a run without a context");
    host.Connect(*this, *static_cast<PVNWorkFlowContext*>(context));
    const ScopeGuard destroy([this]() noexcept { host.Destroy(); });
    host.Init();
    EnterState(startState);
    return host.RunModal();
}

} // namespace brixen::pvn::pvn_workflow
