// The view ids of registration.exv, besides those of its page of connection settings.
#pragma once

#include <cstdint>

namespace brixen::pvn::pvn_workflow::registration {

// The buttons of one pane are in one row.
inline constexpr std::uint16_t kBackButton = 11;
inline constexpr std::uint16_t kContinueButton = 12;
inline constexpr std::uint16_t kRegisterButton = 13;
inline constexpr std::uint16_t kLaterButton = 14;
inline constexpr std::uint16_t kQuitButton = 15;
inline constexpr std::uint16_t kCancelButton = 16; // of the busy pane
inline constexpr std::uint16_t kDoneButton = 17;
inline constexpr std::uint16_t kProblemBackButton = 18;
inline constexpr std::uint16_t kTryAgainButton = 19;
inline constexpr std::uint16_t kProblemLaterButton = 20;
inline constexpr std::uint16_t kSettingsBackButton = 21;
inline constexpr std::uint16_t kUseSettingsButton = 22;

inline constexpr std::uint16_t kIntroductionPage = 100;
inline constexpr std::uint16_t kProductText = 101;
inline constexpr std::uint16_t kPrivacyLink = 102;
inline constexpr std::uint16_t kConnectionLink = 103;

inline constexpr std::uint16_t kDetailsPage = 200;
inline constexpr std::uint16_t kNameField = 201;
inline constexpr std::uint16_t kOrganizationField = 202;
inline constexpr std::uint16_t kEmailField = 203;
inline constexpr std::uint16_t kCountryPopup = 204;
inline constexpr std::uint16_t kSerialField = 205;
inline constexpr std::uint16_t kNewsCheckBox = 206;

inline constexpr std::uint16_t kRegisteringPage = 300;
inline constexpr std::uint16_t kBusyBar = 301;
inline constexpr std::uint16_t kBusyText = 302;
inline constexpr std::uint16_t kCancelNote = 303;

inline constexpr std::uint16_t kRegisteredPage = 400;
inline constexpr std::uint16_t kNumberField = 401;

inline constexpr std::uint16_t kProblemPage = 500;
inline constexpr std::uint16_t kProblemText = 501;
inline constexpr std::uint16_t kProblemConnectionLink = 502;
inline constexpr std::uint16_t kErrorCodeField = 503;

} // namespace brixen::pvn::pvn_workflow::registration
