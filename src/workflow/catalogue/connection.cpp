#include "workflow/catalogue/connection.h"

#include "workflow/catalogue/connection_host.h"
#include "workflow/catalogue/connection_panes.h"
#include "workflow/catalogue/connection_settings_pane.h"
#include "workflow/panes/dialog_state_machine.h"
#include "workflow/resources/resource_layer.h"

namespace brixen::pvn::pvn_workflow {

using namespace connection;

void PVNConnectionWorkFlow::Build(bool demo) {
    LoadWorkFlowDictionary("Connection");
    std::string view = LoadViewDescription("connection");
    std::string settings = LoadViewDescription("connection_settings");
    SetHost(std::make_unique<PVNConnectionHost>(std::move(view), std::move(settings), demo));
    SetTransitions();
    SetPanes(demo);
    machine->startState = kStateSettings;
}

void PVNConnectionWorkFlow::SetTransitions() {
    machine->SetTransition(kStateSettings, kStateTesting, kEventTest);
    machine->SetTransition(kStateSettings, kWFState_Exit, kEventCancel);
    machine->SetTransition(kStateTesting, kStateReached, kTestOperation.successEvent);
    machine->SetTransition(kStateTesting, kStateSettings, kEventCanceledByUser);
    for (const char* failure : {kEventNoConnection, kEventServerUnavailable, kEventTransactionDenied}) {
        machine->SetTransition(kStateTesting, kStateUnreached, failure);
    }
    for (const std::uint16_t state : {kStateReached, kStateUnreached}) {
        machine->SetTransition(state, kStateSettings, kEventBack);
        machine->SetTransition(state, kWFState_Done, kEventDone);
    }
    machine->SetTransition(kStateUnreached, kStateTesting, kEventTryAgain);
    machine->SetTransition(kStateUnreached, kWFState_Exit, kEventCancel);
}

void PVNConnectionWorkFlow::SetPanes(bool demo) {
    SetPane(kStateSettings, std::make_unique<ConnectionSettingsPane>(kSettingsTraits));
    SetPane(kStateTesting, std::make_unique<BusyPane>(kTestingTraits, kTestingBusy, demo));
    SetPane(kStateReached, std::make_unique<ReachedPane>());
    SetPane(kStateUnreached, std::make_unique<UnreachedPane>());
}

} // namespace brixen::pvn::pvn_workflow
