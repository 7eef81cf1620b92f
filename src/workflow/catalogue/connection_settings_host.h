// What the dialog windows of Registration and Connection share: the page of the connection settings, and the
// focus of their fields.
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

class ConnectionSettingsHost : public PVNConcreteHost<ConnectionSettingsHost, PagePane, OperationHost> {
public:
    // Takes the view description of the workflow, which evaluates the text `connection_settings`, and that
    // text. In a tour of the panes (`demo`) every field is taken as it is.
    ConnectionSettingsHost(std::string text, std::string name, std::string settingsText, bool demo);

    static std::span<const Command> Commands();

    bool ProcessWindowMessage(const WindowMessage& message, std::intptr_t& result) override;

protected:
    void OnFirstFocus() override;
    void DefineTexts(zeve::ZeveDialog& dialog) override;

    // Returns whether the user may go on from the page of the settings: they are taken into the run.
    [[nodiscard]] bool TakeSettings();
    bool IsTour() const { return isTour; }

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
