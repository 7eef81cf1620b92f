#include "workflow/catalogue/feedback_host.h"

#include "frame/status.h"
#include "toolkit/message_numbers.h"
#include "toolkit/platform/toolkit_platform.h"
#include "workflow/catalogue/feedback_views.h"
#include "workflow/machine/nav_state_machine.h"
#include "workflow/platform/message_numbers.h"

namespace brixen::pvn::pvn_workflow {

using namespace feedback;

PVNFeedbackHost::PVNFeedbackHost(std::string text, std::string settingsText, bool demo)
    : PVNConcreteHost(std::move(text), "feedback", std::move(settingsText), demo) {}

std::span<const PVNFeedbackHost::Command> PVNFeedbackHost::Commands() {
    using Host = PVNFeedbackHost;
    static constexpr Command kCommands[] = {
        {kBackButton, &Host::OnBack},
        {kContinueButton, &Host::OnContinue},
        {kSendButton, &Host::OnSend},
        {kCancelButton, &Host::OnCancel},
        {kCancelSendingButton, &Host::OnCancelOfBusyPane},
        {kDoneButton, &Host::OnDone},
        {kProblemBackButton, &Host::OnBack},
        {kTryAgainButton, &Host::OnTryAgain},
        {kProblemCancelButton, &Host::OnCancel},
        {kSettingsBackButton, &Host::OnBackFromSettings},
        {kUseSettingsButton, &Host::OnUseSettings},
        {kProblemConnectionLink, &Host::OnSettings},
        {kIdEnter, &Host::OnEnterKey},
        {kIdEscape, &Host::OnEscapeKey},
    };
    return kCommands;
}

// A field of several lines keeps Esc from the dialog, and passes the key on.
bool PVNFeedbackHost::ProcessWindowMessage(const WindowMessage& message, std::intptr_t& result) {
    const bool isHandled = PVNConcreteHost::ProcessWindowMessage(message, result);
    const bool isNewKey = message.number == zeve::kMessageKeyDown && (message.lparam & kKeyRepeats) == 0;
    if (window && isNewKey && message.wparam == zeve::kKeyEscape &&
        zeve::platform::IdOf(zeve::platform::FocusedWindow()) == kCommentField) {
        result = OnEscapeKey();
    }
    return isHandled;
}

std::intptr_t PVNFeedbackHost::OnSend() { return GoOn(kEventSend); }

// Not of the busy pane: its row has the event for a call that has been canceled.
std::intptr_t PVNFeedbackHost::OnCancel() {
    const bool isOffered = IsTour() || machine->CurrentState() != kStateSending;
    return isOffered ? Leave(kStatusUserCancel, kEventCancel) : 0;
}

// On Problem the failure stays the outcome of the run.
std::intptr_t PVNFeedbackHost::OnEscapeKey() {
    switch (machine->CurrentState()) {
    case kStateSending: return OnCancelOfBusyPane();
    case kStateReceived: return OnDone();
    case kStateProblem: return DeliverEvent(kEventCancel);
    case kStateSettings: return OnBackFromSettings();
    default: return OnCancel();
    }
}

} // namespace brixen::pvn::pvn_workflow
