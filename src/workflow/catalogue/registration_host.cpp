#include "workflow/catalogue/registration_host.h"

#include "frame/status.h"
#include "workflow/catalogue/registration_views.h"
#include "workflow/context/workflow_context.h"
#include "workflow/controls/open_in_browser.h"
#include "workflow/machine/nav_state_machine.h"
#include "workflow/panes/alert.h"
#include "workflow/platform/message_numbers.h"

namespace brixen::pvn::pvn_workflow {

using namespace registration;

PVNRegistrationHost::PVNRegistrationHost(std::string text, std::string settingsText, bool demo)
    : PVNConcreteHost(std::move(text), "registration", std::move(settingsText), demo) {}

std::span<const PVNRegistrationHost::Command> PVNRegistrationHost::Commands() {
    using Host = PVNRegistrationHost;
    static constexpr Command kCommands[] = {
        {kBackButton, &Host::OnBack},
        {kContinueButton, &Host::OnContinue},
        {kRegisterButton, &Host::OnRegister},
        {kLaterButton, &Host::OnLater},
        {kQuitButton, &Host::OnQuit},
        {kCancelButton, &Host::OnCancelOfBusyPane},
        {kDoneButton, &Host::OnDone},
        {kProblemBackButton, &Host::OnBack},
        {kTryAgainButton, &Host::OnTryAgain},
        {kProblemLaterButton, &Host::OnLater},
        {kSettingsBackButton, &Host::OnBackFromSettings},
        {kUseSettingsButton, &Host::OnUseSettings},
        {kPrivacyLink, &Host::OnReadPrivacy},
        {kConnectionLink, &Host::OnSettings},
        {kProblemConnectionLink, &Host::OnSettings},
        {kIdEnter, &Host::OnEnterKey},
        {kIdEscape, &Host::OnEscapeKey},
    };
    return kCommands;
}

std::intptr_t PVNRegistrationHost::OnRegister() { return GoOn(kEventRegister); }
std::intptr_t PVNRegistrationHost::OnLater() { return Leave(kStatusUserOutcome3, kEventLater); }

std::intptr_t PVNRegistrationHost::OnReadPrivacy() {
    OpenTextAddress("$$$/pvn/service/privacy_url");
    return 0;
}

std::intptr_t PVNRegistrationHost::OnQuit() {
    if (!machine->CanHandleEvent(kEventQuit)) return 0;
    return ShowAlert(kAlertQuit, Window(), context) ? Leave(kStatusUserQuit, kEventQuit) : 0;
}

// On Problem the failure stays the outcome of the run.
std::intptr_t PVNRegistrationHost::OnEscapeKey() {
    switch (machine->CurrentState()) {
    case kStateRegistering: return OnCancelOfBusyPane();
    case kStateRegistered: return OnDone();
    case kStateProblem: return DeliverEvent(kEventCancel);
    case kStateSettings: return OnBackFromSettings();
    default: return Leave(kStatusUserCancel, kEventCancel);
    }
}

} // namespace brixen::pvn::pvn_workflow
