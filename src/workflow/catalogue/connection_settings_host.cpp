#include "workflow/catalogue/connection_settings_host.h"

#include "toolkit/dialog/zeve_dialog.h"
#include "toolkit/message_numbers.h"
#include "toolkit/platform/toolkit_platform.h"
#include "workflow/catalogue/connection_settings_pane.h"
#include "workflow/catalogue/connection_settings_views.h"
#include "workflow/catalogue/text_checks.h"
#include "workflow/context/context_keys.h"
#include "workflow/context/workflow_context.h"
#include "workflow/machine/nav_state_machine.h"
#include "workflow/platform/message_numbers.h"
#include "workflow/resources/resource_layer.h"

#include <utility>

namespace brixen::pvn::pvn_workflow {

using namespace connection_settings;

namespace {

// The text would stay in the memory of the field.
void WipePassword(zeve::ZeveDialog* dialog) noexcept try {
    const zeve::NativeWindow field =
        dialog ? zeve::platform::ChildWithId(zeve::ZeveTopWindow(dialog), kPasswordField) : nullptr;
    if (!field) return;
    const auto length = zeve::platform::Send(field, zeve::kMessageGetTextLength, 0, 0);
    const std::u16string blanks(static_cast<std::size_t>(length), u' ');
    zeve::platform::SetText(field, blanks.c_str());
    zeve::platform::SetText(field, u"");
} catch (...) {
    // Without memory for the blanks, or if a window of the application throws, the text stays as it is.
}

} // namespace

ConnectionSettingsHost::ConnectionSettingsHost(std::string text, std::string name, std::string settingsText,
                                               bool demo)
    : PVNConcreteHost(std::move(text), std::move(name)), settings(std::move(settingsText)), isTour(demo) {}

std::span<const ConnectionSettingsHost::Command> ConnectionSettingsHost::Commands() {
    static constexpr Command kCommands[] = {
        {kSystemProxy, &ConnectionSettingsHost::OnSystemProxy},
        {kSystemProxy, &ConnectionSettingsHost::OnSystemProxy, kNotificationButtonHasFocus},
        {kOwnProxy, &ConnectionSettingsHost::OnOwnProxy},
        {kOwnProxy, &ConnectionSettingsHost::OnOwnProxy, kNotificationButtonHasFocus},
    };
    return kCommands;
}

void ConnectionSettingsHost::Destroy() noexcept {
    WipePassword(zeveRef.get());
    PVNConcreteHost::Destroy();
}

bool ConnectionSettingsHost::ProcessWindowMessage(const WindowMessage& message, std::intptr_t& result) {
    const bool isHandled = OperationHost::ProcessWindowMessage(message, result);
    FieldPane* const pane = window ? CurrentFieldPane() : nullptr;
    if (pane) pane->OnMessage(message);
    return isHandled;
}

FieldPane* ConnectionSettingsHost::CurrentFieldPane() const {
    return dynamic_cast<FieldPane*>(CurrentPane());
}

void ConnectionSettingsHost::OnFirstFocus() {
    if (CurrentFieldPane()) CurrentFieldPane()->TakeFirstFocus();
}

void ConnectionSettingsHost::DefineTexts(zeve::ZeveDialog& dialog) {
    zeve::ZeveDefineText(&dialog, "connection_settings", settings);
    SetString(*context, PvnWFKey_PageLocale, LocaleOfWords());
    SetString(*context, PvnWFKey_ProductName, SendableName(StringOf(*context, PvnWFKey_ProductName)));
}

std::intptr_t ConnectionSettingsHost::GoOn(std::string_view event) {
    if (!machine->CanHandleEvent(event)) return 0;
    FieldPane* const pane = CurrentFieldPane();
    return isTour || (pane && pane->TakeEntries()) ? DeliverEvent(event) : 0;
}

std::intptr_t ConnectionSettingsHost::OnContinue() { return GoOn(kEventContinue); }
std::intptr_t ConnectionSettingsHost::OnBack() { return DeliverEvent(kEventBack); }
std::intptr_t ConnectionSettingsHost::OnTryAgain() { return DeliverEvent(kEventTryAgain); }
std::intptr_t ConnectionSettingsHost::OnSettings() { return DeliverEvent(kEventSettings); }
std::intptr_t ConnectionSettingsHost::OnBackFromSettings() { return DeliverEvent(kEventGoBack); }
std::intptr_t ConnectionSettingsHost::OnUseSettings() { return GoOn(kEventGoBack); }
std::intptr_t ConnectionSettingsHost::OnDone() { return DeliverEvent(kEventDone); }
std::intptr_t ConnectionSettingsHost::OnEnterKey() { return Press(CurrentPane()->DefaultButton()); }

std::intptr_t ConnectionSettingsHost::OnSystemProxy() { return Choose(kSystemProxy); }
std::intptr_t ConnectionSettingsHost::OnOwnProxy() { return Choose(kOwnProxy); }

std::intptr_t ConnectionSettingsHost::Choose(std::uint16_t button) {
    if (auto* const pane = dynamic_cast<ConnectionSettingsPane*>(CurrentPane())) pane->Choose(button);
    return 0;
}

std::intptr_t ConnectionSettingsHost::Leave(std::uint32_t status, std::string_view event) {
    if (!machine->CanHandleEvent(event)) return 0;
    SetLong(*context, PvnWFKey_WorkFlowResult, status);
    return DeliverEvent(event);
}

} // namespace brixen::pvn::pvn_workflow
