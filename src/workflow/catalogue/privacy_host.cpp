#include "workflow/catalogue/privacy_host.h"

#include "frame/status.h"
#include "toolkit/message_numbers.h"
#include "workflow/catalogue/privacy_data.h"
#include "workflow/context/context_keys.h"
#include "workflow/context/workflow_context.h"
#include "workflow/machine/nav_state_machine.h"
#include "workflow/platform/message_numbers.h"

namespace brixen::pvn::pvn_workflow {

using namespace privacy;

PVNPrivacyHost::PVNPrivacyHost(std::string text, const PrivacyData& runData)
    : PVNConcreteHost(std::move(text), "privacy"), data(runData) {}

std::span<const PVNPrivacyHost::Command> PVNPrivacyHost::Commands() {
    static constexpr Command kCommands[] = {
        {kContinueButton, &PVNPrivacyHost::OnContinue}, {kBackButton, &PVNPrivacyHost::OnBack},
        {kAcceptButton, &PVNPrivacyHost::OnAccept},     {kDeclineButton, &PVNPrivacyHost::OnDecline},
        {kReturnButton, &PVNPrivacyHost::OnBack},       {kCancelButton, &PVNPrivacyHost::OnCancel},
        {kIdEnter, &PVNPrivacyHost::OnEnterKey},        {kIdEscape, &PVNPrivacyHost::OnCancel},
    };
    return kCommands;
}

bool PVNPrivacyHost::ProcessWindowMessage(const WindowMessage& message, std::intptr_t& result) {
    const bool isHandled = PVNPaneHost::ProcessWindowMessage(message, result);
    PrivacyPane* const pane = CurrentPane();
    if (!window || !pane) return isHandled;
    pane->OnMessage(message);
    const bool isNewKey = message.number == zeve::kMessageKeyDown && (message.lparam & kKeyRepeats) == 0;
    if (isNewKey && pane->HasFieldOfLines()) result = OnKeyInField(message.wparam);
    return isHandled;
}

// Only for keys that are not held: the key that led to this pane is no answer to it.
std::intptr_t PVNPrivacyHost::OnKeyInField(std::uintptr_t key) {
    if (key == zeve::kKeyEnter) return OnEnterKey();
    return key == zeve::kKeyEscape ? OnCancel() : 0;
}

void PVNPrivacyHost::OnFirstFocus() {
    if (CurrentPane()) CurrentPane()->TakeFirstFocus();
}

std::intptr_t PVNPrivacyHost::OnContinue() {
    if (!machine->CanHandleEvent(kEventContinue)) return 0;
    CurrentPane()->TakeChoice();
    return DeliverEvent(data.statement.empty() ? kEventMissing : kEventContinue);
}

std::intptr_t PVNPrivacyHost::OnBack() { return DeliverEvent(kEventGoBack); }
std::intptr_t PVNPrivacyHost::OnAccept() { return DeliverEvent(kEventAccept); }
std::intptr_t PVNPrivacyHost::OnDecline() { return Leave(kStatusUserOutcome3, kEventDecline); }
std::intptr_t PVNPrivacyHost::OnCancel() { return Leave(kStatusUserCancel, kEventCancel); }

std::intptr_t PVNPrivacyHost::OnEnterKey() { return Press(CurrentPane()->DefaultButton()); }

std::intptr_t PVNPrivacyHost::Leave(std::uint32_t status, std::string_view event) {
    if (!machine->CanHandleEvent(event)) return 0;
    SetLong(*context, PvnWFKey_WorkFlowResult, status);
    return DeliverEvent(event);
}

} // namespace brixen::pvn::pvn_workflow
