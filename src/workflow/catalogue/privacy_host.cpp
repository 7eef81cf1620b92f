#include "workflow/catalogue/privacy_host.h"

#include "frame/status.h"
#include "toolkit/window_messages.h"
#include "workflow/catalogue/privacy_data.h"
#include "workflow/catalogue/privacy_panes.h"
#include "workflow/context/context_keys.h"
#include "workflow/panes/host_messages.h"
#include "workflow/machine/nav_state_machine.h"
#include "workflow/context/workflow_context.h"

namespace brixen::pvn::pvn_workflow {

using namespace privacy;

namespace {

// Of the lparam of a key that goes down: it was down before, and is merely held.
constexpr std::intptr_t kKeyRepeats = 1 << 30;

} // namespace

PVNPrivacyHost::PVNPrivacyHost(std::string text, const PrivacyData& runData)
    : PVNConcreteHost(std::move(text)), data(runData) {}

std::span<const PVNPrivacyHost::Command> PVNPrivacyHost::Commands() {
    static constexpr Command kCommands[] = {
        {kContinueButton, &PVNPrivacyHost::OnContinue}, {kBackButton, &PVNPrivacyHost::OnBack},
        {kAcceptButton, &PVNPrivacyHost::OnAccept},     {kDeclineButton, &PVNPrivacyHost::OnDecline},
        {kReturnButton, &PVNPrivacyHost::OnBack},       {kCancelButton, &PVNPrivacyHost::OnCancel},
        {kIdEnter, &PVNPrivacyHost::OnEnterKey},        {kIdEscape, &PVNPrivacyHost::OnCancel},
    };
    return kCommands;
}

PrivacyPane& PVNPrivacyHost::Pane() const { return *static_cast<PrivacyPane*>(currentPane); }

bool PVNPrivacyHost::ProcessWindowMessage(const WindowMessage& message, std::intptr_t& result) {
    const bool isHandled = PVNPaneHost::ProcessWindowMessage(message, result);
    if (!window || !currentPane) return isHandled;
    if (message.number == zeve::kMessageNextDialogControl) Pane().OnTab();
    if (message.number == zeve::kMessageCommand)
        Pane().OnNotification(LowWord(message.wparam), HighWord(message.wparam));
    const bool isNewKey = message.number == zeve::kMessageKeyDown && (message.lparam & kKeyRepeats) == 0;
    if (isNewKey && Pane().HasFieldOfLines()) result = OnKeyInField(message.wparam);
    return isHandled;
}

// Who holds Enter down to get to the statement has not accepted it, hence only keys that are new come here.
std::intptr_t PVNPrivacyHost::OnKeyInField(std::uintptr_t key) {
    if (key == zeve::kKeyEnter) return OnEnterKey();
    return key == zeve::kKeyEscape ? OnCancel() : 0;
}

void PVNPrivacyHost::OnFirstFocus() {
    if (currentPane) Pane().TakeFirstFocus();
}

std::intptr_t PVNPrivacyHost::OnContinue() {
    if (!machine->CanHandleEvent(kEventContinue)) return 0;
    Pane().TakeChoice();
    return DeliverEvent(data.statement.empty() ? kEventMissing : kEventContinue);
}

std::intptr_t PVNPrivacyHost::OnBack() { return DeliverEvent(kEventGoBack); }
std::intptr_t PVNPrivacyHost::OnAccept() { return DeliverEvent(kEventAccept); }
std::intptr_t PVNPrivacyHost::OnDecline() { return Leave(kStatusUserOutcome3, kEventDecline); }
std::intptr_t PVNPrivacyHost::OnCancel() { return Leave(kStatusUserCancel, kEventCancel); }

std::intptr_t PVNPrivacyHost::OnEnterKey() { return Press(Pane().DefaultButton()); }

std::intptr_t PVNPrivacyHost::Leave(std::uint32_t status, std::string_view event) {
    if (!machine->CanHandleEvent(event)) return 0;
    SetLong(*context, PvnWFKey_WorkFlowResult, status);
    return DeliverEvent(event);
}

} // namespace brixen::pvn::pvn_workflow
