#include "workflow/workflow.h"

#include "values/scope_guard.h"
#include "workflow/context/context_keys.h"
#include "workflow/context/workflow_context.h"
#include "workflow/panes/dialog_state_machine.h"
#include "workflow/panes/pane.h"
#include "workflow/panes/pane_host.h"

#include <stdexcept>

namespace brixen::pvn::pvn_workflow {

PVNWorkFlow::PVNWorkFlow(PVNWorkFlowContext& context) : PVNWorkFlowObject(&context) {}

PVNWorkFlow::~PVNWorkFlow() { PVNWorkFlow::Cleanup(); }

bool PVNWorkFlow::Run(bool demo) {
    const ScopeGuard cleanup([this]() noexcept { Cleanup(); });
    Build(demo);
    machine->SetDemoMode(demo);
    machine->SetProperty(kWFState_Any, kPropertyWorkflowContext, ref);
    return machine->Run();
}

void PVNWorkFlow::SetHost(std::unique_ptr<PVNPaneHost> paneHost) {
    host = std::move(paneHost);
    SetPtr(*ref, PvnWFKey_AppDialog, host.get());
    machine = std::make_unique<PVNDialogStateMachine>(*host);
}

void PVNWorkFlow::SetPane(std::uint16_t state, std::unique_ptr<PVNPane> pane) {
    if (!machine->HasTransitions(state)) throw std::logic_error("a pane on a state without transitions");
    if (!host->Accepts(*pane)) throw std::logic_error("a pane of another host");
    const auto [entry, isNew] = panes.try_emplace(static_cast<std::int16_t>(state), std::move(pane));
    if (!isNew) throw std::logic_error("a second pane on a state");
    machine->SetProperty(state, kPropertyPaneObject, entry->second.get());
}

void PVNWorkFlow::Cleanup() noexcept {
    DestroyPanes();
    if (machine) machine->RemoveProperty(kWFState_Any, kPropertyActionDelegate);
    machine.reset();
    host.reset();
}

void PVNWorkFlow::DestroyPanes() noexcept {
    for (auto& [state, pane] : panes) {
        machine->RemoveProperty(static_cast<std::uint16_t>(state), kPropertyPaneObject);
        pane.reset();
    }
    panes.clear();
}

} // namespace brixen::pvn::pvn_workflow
