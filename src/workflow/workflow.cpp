#include "workflow/workflow.h"

#include "workflow/context/context_keys.h"
#include "workflow/panes/dialog_state_machine.h"
#include "workflow/panes/pane.h"
#include "workflow/panes/pane_host.h"
#include "values/scope_guard.h"
#include "workflow/context/workflow_context.h"

#include <stdexcept>

namespace brixen::pvn::pvn_workflow {

PVNWorkFlow::PVNWorkFlow(PVNWorkFlowContext& context) : PVNWorkFlowObject(&context) {}

PVNWorkFlow::~PVNWorkFlow() { PVNWorkFlow::Cleanup(); }

bool PVNWorkFlow::Run(bool demo) {
    ScopeGuard cleanup([this]() noexcept { Cleanup(); });
    Build(demo);
    machine->SetDemoMode(demo);
    machine->SetProperty(kWFState_Any, kPropertyWorkflowContext, ref);
    return machine->Run();
}

void PVNWorkFlow::SetHost(std::unique_ptr<PVNPaneHost> paneHost) {
    host = std::move(paneHost);
    SetPtr(*ref, PvnWFKey_AppDialog, host.get());
    machine = std::make_unique<PVNDialogStateMachine>(*host);
    machine->SetProperty(kWFState_Any, kPropertyActionDelegate, static_cast<PVNActionDelegate*>(host.get()));
}

void PVNWorkFlow::SetPane(std::uint16_t state, std::unique_ptr<PVNPane> pane) {
    if (!machine->HasTransitions(state)) throw std::logic_error("a pane on a state without transitions");
    if (!machine->SetProperty(state, kPropertyPaneObject, pane.get())) {
        throw std::logic_error("a second pane on a state");
    }
    // The state's property owns the pane from here on; DestroyPanes frees it.
    pane.release();
}

void PVNWorkFlow::Cleanup() noexcept {
    if (machine) {
        DestroyPanes();
        machine->RemoveProperty(kWFState_Any, kPropertyActionDelegate);
    }
    machine.reset();
    host.reset();
}

void PVNWorkFlow::DestroyPanes() noexcept {
    for (std::size_t place = 0; place < machine->CountStates(); ++place) {
        delete static_cast<PVNPane*>(machine->RemoveProperty(machine->StateAt(place), kPropertyPaneObject));
    }
}

} // namespace brixen::pvn::pvn_workflow
