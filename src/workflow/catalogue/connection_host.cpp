#include "workflow/catalogue/connection_host.h"

#include "frame/status.h"
#include "workflow/catalogue/connection_views.h"
#include "workflow/machine/nav_state_machine.h"
#include "workflow/platform/message_numbers.h"

namespace brixen::pvn::pvn_workflow {

using namespace connection;

PVNConnectionHost::PVNConnectionHost(std::string text, std::string settingsText, bool demo)
    : PVNConcreteHost(std::move(text), "connection", std::move(settingsText), demo) {}

std::span<const PVNConnectionHost::Command> PVNConnectionHost::Commands() {
    using Host = PVNConnectionHost;
    static constexpr Command kCommands[] = {
        {kTestButton, &Host::OnContinue},
        {kCancelButton, &Host::OnCancel},
        {kCancelTestButton, &Host::OnCancelOfBusyPane},
        {kReachedBackButton, &Host::OnBack},
        {kReachedDoneButton, &Host::OnDone},
        {kUnreachedBackButton, &Host::OnBack},
        {kTryAgainButton, &Host::OnTryAgain},
        {kUnreachedDoneButton, &Host::OnDone},
        {kIdEnter, &Host::OnEnterKey},
        {kIdEscape, &Host::OnEscapeKey},
    };
    return kCommands;
}

// Only of the settings: the other rows of this event keep the outcome.
std::intptr_t PVNConnectionHost::OnCancel() {
    const bool isOffered = IsTour() || machine->CurrentState() == kStateSettings;
    return isOffered ? Leave(kStatusUserCancel, kEventCancel) : 0;
}

// After a failed test the failure stays the outcome of the run.
std::intptr_t PVNConnectionHost::OnEscapeKey() {
    switch (machine->CurrentState()) {
    case kStateTesting: return OnCancelOfBusyPane();
    case kStateReached: return OnDone();
    case kStateUnreached: return DeliverEvent(kEventCancel);
    default: return OnCancel();
    }
}

} // namespace brixen::pvn::pvn_workflow
