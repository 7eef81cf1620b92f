// The dialog window of Connection.
#pragma once

#include "workflow/catalogue/connection_settings_host.h"

#include <cstdint>
#include <span>
#include <string>

namespace brixen::pvn::pvn_workflow {

namespace connection {

inline constexpr std::uint16_t kStateSettings = 1;
inline constexpr std::uint16_t kStateTesting = 2;
inline constexpr std::uint16_t kStateReached = 3;
inline constexpr std::uint16_t kStateUnreached = 4;

} // namespace connection

class PVNConnectionHost final : public PVNConcreteHost<PVNConnectionHost, PagePane, ConnectionSettingsHost> {
public:
    // See ConnectionSettingsHost.
    PVNConnectionHost(std::string text, std::string settingsText, bool demo);

    static std::span<const Command> Commands();

private:
    std::intptr_t OnCancel();
    std::intptr_t OnEscapeKey();
};

} // namespace brixen::pvn::pvn_workflow
