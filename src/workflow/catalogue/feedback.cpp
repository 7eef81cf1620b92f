#include "workflow/catalogue/feedback.h"

#include "workflow/catalogue/connection_settings_pane.h"
#include "workflow/catalogue/feedback_host.h"
#include "workflow/catalogue/feedback_panes.h"
#include "workflow/catalogue/storage_pane.h"
#include "workflow/panes/dialog_state_machine.h"
#include "workflow/resources/resource_layer.h"
#include "workflow/worker/busy_row.h"

namespace brixen::pvn::pvn_workflow {

using namespace feedback;

void PVNFeedbackWorkFlow::Build(bool demo) {
    LoadWorkFlowDictionary("Feedback");
    std::string view = LoadViewDescription("feedback");
    std::string settings = LoadViewDescription("connection_settings");
    SetHost(std::make_unique<PVNFeedbackHost>(std::move(view), std::move(settings), demo));
    SetTransitions();
    SetPanes(demo);
    machine->startState = kStatePicture;
}

void PVNFeedbackWorkFlow::SetTransitions() {
    machine->SetTransition(kStatePicture, kStateCapture, kEventContinue);
    machine->SetTransition(kStateCapture, kStatePicture, kEventBack);
    machine->SetTransition(kStateCapture, kStateStorage, kEventContinue);
    machine->SetTransition(kStateStorage, kStateCapture, kEventBack);
    machine->SetTransition(kStateStorage, kStateSending, kEventSend);
    SetBusyRow(*machine, kSendFeedbackOperation,
               {.busy = kStateSending,
                .success = kStateReceived,
                .cancel = kStateStorage,
                .failure = kStateProblem});
    machine->SetTransition(kStateReceived, kWFState_Done, kEventDone);
    machine->SetTransition(kStateProblem, kStateStorage, kEventBack);
    machine->SetTransition(kStateProblem, kStateSending, kEventTryAgain);
    machine->SetTransition(kStateProblem, kStateSettings, kEventSettings);
    for (const std::uint16_t state : {kStatePicture, kStateCapture, kStateStorage, kStateProblem}) {
        machine->SetTransition(state, kWFState_Exit, kEventCancel);
    }
    machine->SetTransition(kStateSettings, kWFState_BackUnset, kEventGoBack);
}

void PVNFeedbackWorkFlow::SetPanes(bool demo) {
    SetPane(kStatePicture, std::make_unique<PicturePane>());
    SetPane(kStateCapture, std::make_unique<CapturePane>());
    SetPane(kStateStorage, std::make_unique<StoragePane>());
    SetPane(kStateSending, std::make_unique<BusyPane>(kSendingTraits, kSendingBusy, demo));
    SetPane(kStateReceived, std::make_unique<ReceivedPane>());
    SetPane(kStateProblem, std::make_unique<ProblemPane>(kProblemTraits));
    SetPane(kStateSettings, std::make_unique<ConnectionSettingsPane>(kSettingsTraits));
}

} // namespace brixen::pvn::pvn_workflow
