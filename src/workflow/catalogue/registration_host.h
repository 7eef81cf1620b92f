// The dialog window of Registration.
#pragma once

#include "workflow/catalogue/connection_settings_host.h"

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace brixen::pvn::pvn_workflow {

namespace registration {

inline constexpr std::uint16_t kStateIntroduction = 1;
inline constexpr std::uint16_t kStateDetails = 2;
inline constexpr std::uint16_t kStateRegistering = 3;
inline constexpr std::uint16_t kStateRegistered = 4;
inline constexpr std::uint16_t kStateProblem = 5;
inline constexpr std::uint16_t kStateSettings = 6;

inline constexpr std::string_view kEventRegister = "RegisterButton";
inline constexpr std::string_view kEventLater = "Skip";
inline constexpr std::string_view kEventQuit = "QuitButton";

} // namespace registration

class PVNRegistrationHost final
    : public PVNConcreteHost<PVNRegistrationHost, PagePane, ConnectionSettingsHost> {
public:
    // See ConnectionSettingsHost.
    PVNRegistrationHost(std::string text, std::string settingsText, bool demo);

    static std::span<const Command> Commands();

private:
    std::intptr_t OnRegister();
    std::intptr_t OnReadPrivacy();
    std::intptr_t OnLater();
    std::intptr_t OnQuit();
    std::intptr_t OnEscapeKey();
};

} // namespace brixen::pvn::pvn_workflow
