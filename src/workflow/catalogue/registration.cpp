#include "workflow/catalogue/registration.h"

#include "workflow/catalogue/connection_settings_pane.h"
#include "workflow/catalogue/registration_host.h"
#include "workflow/catalogue/registration_panes.h"
#include "workflow/panes/dialog_state_machine.h"
#include "workflow/resources/resource_layer.h"
#include "workflow/worker/busy_row.h"

namespace brixen::pvn::pvn_workflow {

using namespace registration;

void PVNRegistrationWorkFlow::Build(bool demo) {
    LoadWorkFlowDictionary("Registration");
    std::string view = LoadViewDescription("registration");
    std::string settings = LoadViewDescription("connection_settings");
    SetHost(std::make_unique<PVNRegistrationHost>(std::move(view), std::move(settings), demo));
    SetTransitions();
    SetPanes(demo);
    machine->startState = kStateIntroduction;
}

void PVNRegistrationWorkFlow::SetTransitions() {
    machine->SetTransition(kStateIntroduction, kStateDetails, kEventContinue);
    machine->SetTransition(kStateIntroduction, kStateSettings, kEventSettings);
    machine->SetTransition(kStateDetails, kStateIntroduction, kEventBack);
    machine->SetTransition(kStateDetails, kStateRegistering, kEventRegister);
    for (const std::uint16_t state : {kStateIntroduction, kStateDetails}) {
        machine->SetTransition(state, kWFState_Exit, kEventQuit);
    }
    SetBusyRow(*machine, kRegisterOperation,
               {.busy = kStateRegistering,
                .success = kStateRegistered,
                .cancel = kStateDetails,
                .failure = kStateProblem});
    machine->SetTransition(kStateRegistered, kWFState_Done, kEventDone);
    machine->SetTransition(kStateProblem, kStateDetails, kEventBack);
    machine->SetTransition(kStateProblem, kStateRegistering, kEventTryAgain);
    machine->SetTransition(kStateProblem, kStateSettings, kEventSettings);
    for (const std::uint16_t state : {kStateIntroduction, kStateDetails, kStateProblem}) {
        machine->SetTransition(state, kWFState_Exit, kEventLater);
        machine->SetTransition(state, kWFState_Exit, kEventCancel);
    }
    machine->SetTransition(kStateSettings, kWFState_BackUnset, kEventGoBack);
}

void PVNRegistrationWorkFlow::SetPanes(bool demo) {
    SetPane(kStateIntroduction, std::make_unique<IntroductionPane>());
    SetPane(kStateDetails, std::make_unique<DetailsPane>());
    SetPane(kStateRegistering, std::make_unique<BusyPane>(kRegisteringTraits, kRegisteringBusy, demo));
    SetPane(kStateRegistered, std::make_unique<RegisteredPane>());
    SetPane(kStateProblem, std::make_unique<ProblemPane>(kProblemTraits));
    SetPane(kStateSettings, std::make_unique<ConnectionSettingsPane>(kSettingsTraits));
}

} // namespace brixen::pvn::pvn_workflow
