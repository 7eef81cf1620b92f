// The dialog window of Feedback.
#pragma once

#include "workflow/catalogue/connection_settings_host.h"

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace brixen::pvn::pvn_workflow {

namespace feedback {

inline constexpr std::uint16_t kStatePicture = 1;
inline constexpr std::uint16_t kStateCapture = 2;
inline constexpr std::uint16_t kStateStorage = 3;
inline constexpr std::uint16_t kStateSending = 4;
inline constexpr std::uint16_t kStateReceived = 5;
inline constexpr std::uint16_t kStateProblem = 6;
inline constexpr std::uint16_t kStateSettings = 7;

inline constexpr std::string_view kEventSend = "SendButton";

} // namespace feedback

class PVNFeedbackHost final : public PVNConcreteHost<PVNFeedbackHost, PagePane, ConnectionSettingsHost> {
public:
    // See ConnectionSettingsHost.
    PVNFeedbackHost(std::string text, std::string settingsText, bool demo);

    static std::span<const Command> Commands();

    bool ProcessWindowMessage(const WindowMessage& message, std::intptr_t& result) override;

private:
    std::intptr_t OnSend();
    std::intptr_t OnCancel();
    std::intptr_t OnEscapeKey();
};

} // namespace brixen::pvn::pvn_workflow
