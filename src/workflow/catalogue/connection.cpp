#include "workflow/catalogue/connection.h"

#include "workflow/catalogue/connection_host.h"
#include "workflow/catalogue/connection_panes.h"
#include "workflow/catalogue/connection_settings_pane.h"
#include "workflow/panes/dialog_state_machine.h"
#include "workflow/resources/resource_layer.h"
#include "workflow/worker/busy_row.h"

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
    machine->SetTransition(kStateSettings, kStateTesting, kEventContinue);
    machine->SetTransition(kStateSettings, kWFState_Exit, kEventCancel);
    SetBusyRow(*machine, kTestOperation,
               {.busy = kStateTesting,
                .success = kStateReached,
                .cancel = kStateSettings,
                .failure = kStateUnreached});
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
    SetPane(kStateUnreached, std::make_unique<ProblemPane>(kUnreachedTraits));
}

} // namespace brixen::pvn::pvn_workflow
