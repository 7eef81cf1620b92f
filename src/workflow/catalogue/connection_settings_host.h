// What the dialog windows of the workflows that call the service share: their events, the page of the
// connection settings, and the focus of their fields.
#pragma once

#include "workflow/panes/concrete_host.h"
#include "workflow/panes/page_pane.h"
#include "workflow/worker/operation_host.h"

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace brixen::pvn::pvn_workflow {

class FieldPane;

inline constexpr std::string_view kEventContinue = "Continue";
inline constexpr std::string_view kEventBack = "Back";
inline constexpr std::string_view kEventTryAgain = "DoItAgain";
inline constexpr std::string_view kEventSettings = "ConnectionSettings";
inline constexpr std::string_view kEventDone = "DoneButton";
inline constexpr std::string_view kEventCancel = "CancelButton";

class ConnectionSettingsHost : public PVNConcreteHost<ConnectionSettingsHost, PagePane, OperationHost> {
public:
    // Takes the view description of the workflow, which evaluates the text `connection_settings`, and that
    // text. In a tour of the panes (`demo`) every field is taken as it is.
    ConnectionSettingsHost(std::string text, std::string name, std::string settingsText, bool demo);

    static std::span<const Command> Commands();

    // Wipes the password in its field first.
    void Destroy() noexcept override;
    bool ProcessWindowMessage(const WindowMessage& message, std::intptr_t& result) override;

protected:
    void OnFirstFocus() override;
    void DefineTexts(zeve::ZeveDialog& dialog) override;

    bool IsTour() const { return isTour; }
    // Has the pane take what was entered into the run, then delivers the event. Does nothing where the event
    // leads nowhere, or if the pane has found a fault.
    std::intptr_t GoOn(std::string_view event);

    // Handlers for the tables of commands.
    std::intptr_t OnContinue();
    std::intptr_t OnBack();
    std::intptr_t OnTryAgain();
    std::intptr_t OnSettings();
    std::intptr_t OnBackFromSettings();
    std::intptr_t OnUseSettings();
    std::intptr_t OnDone();
    std::intptr_t OnEnterKey(); // presses the default button of the pane

    // Stores the outcome, then delivers the event. Does nothing where the event leads nowhere.
    std::intptr_t Leave(std::uint32_t status, std::string_view event);

private:
    FieldPane* CurrentFieldPane() const;
    std::intptr_t OnSystemProxy();
    std::intptr_t OnOwnProxy();
    std::intptr_t Choose(std::uint16_t button);

    std::string settings;
    bool isTour;
};

} // namespace brixen::pvn::pvn_workflow
