// The view ids of welcome.exv.
#pragma once

#include <cstdint>

namespace brixen::pvn::pvn_workflow::welcome {

inline constexpr std::uint16_t kBackButton = 11;
inline constexpr std::uint16_t kContinueButton = 12;
inline constexpr std::uint16_t kDoneButton = 13;
inline constexpr std::uint16_t kQuitButton = 14;

inline constexpr std::uint16_t kWelcomePage = 100;
inline constexpr std::uint16_t kLearnMoreLink = 101;

inline constexpr std::uint16_t kHighlightsPage = 200;
inline constexpr std::uint16_t kStepsPicture = 201;
inline constexpr std::uint16_t kLanguagePicture = 202;
inline constexpr std::uint16_t kPrivacyPicture = 203;

inline constexpr std::uint16_t kReadyPage = 300;

} // namespace brixen::pvn::pvn_workflow::welcome
