// The view ids of privacy.exv.
#pragma once

#include <cstdint>

namespace brixen::pvn::pvn_workflow::privacy {

// Each pane has buttons of its own, side by side. Cancel is on all panes.
inline constexpr std::uint16_t kContinueButton = 11;
inline constexpr std::uint16_t kBackButton = 12;
inline constexpr std::uint16_t kAcceptButton = 13;
inline constexpr std::uint16_t kDeclineButton = 14;
inline constexpr std::uint16_t kReturnButton = 15; // Back, where there is no statement
inline constexpr std::uint16_t kCancelButton = 16;

inline constexpr std::uint16_t kChoosePage = 100;
inline constexpr std::uint16_t kLanguagePopup = 101;
inline constexpr std::uint16_t kChoosePicture = 102;

// One field for each reading direction, because a control keeps the direction that it was made with. Each is
// in a group with a label of its own: a label names the field that was made after it.
inline constexpr std::uint16_t kStatementPage = 200;
inline constexpr std::uint16_t kLeftToRightField = 201;
inline constexpr std::uint16_t kRightToLeftField = 202;
inline constexpr std::uint16_t kLeftToRightGroup = 210;
inline constexpr std::uint16_t kRightToLeftGroup = 220;

inline constexpr std::uint16_t kMissingPage = 300;

inline constexpr std::uint16_t kNonePage = 400;

} // namespace brixen::pvn::pvn_workflow::privacy
