// The view ids of connection_settings.exv, the page that Registration, Connection and Feedback share.
#pragma once

#include <cstdint>

namespace brixen::pvn::pvn_workflow::connection_settings {

inline constexpr std::uint16_t kPage = 900;
inline constexpr std::uint16_t kSystemProxy = 901;
inline constexpr std::uint16_t kOwnProxy = 902;

inline constexpr std::uint16_t kProxyGroup = 910; // enabled for the user's own proxy
inline constexpr std::uint16_t kHostField = 911;
inline constexpr std::uint16_t kPortField = 912;
inline constexpr std::uint16_t kUserNameField = 913;
inline constexpr std::uint16_t kPasswordField = 914;

} // namespace brixen::pvn::pvn_workflow::connection_settings
