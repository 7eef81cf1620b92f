// The view ids of connection.exv, besides those of its page of connection settings.
#pragma once

#include <cstdint>

namespace brixen::pvn::pvn_workflow::connection {

// The buttons of one pane are in one row.
inline constexpr std::uint16_t kTestButton = 11;
inline constexpr std::uint16_t kCancelButton = 12;
inline constexpr std::uint16_t kCancelTestButton = 13; // of the busy pane
inline constexpr std::uint16_t kReachedBackButton = 14;
inline constexpr std::uint16_t kReachedDoneButton = 15;
inline constexpr std::uint16_t kUnreachedBackButton = 16;
inline constexpr std::uint16_t kTryAgainButton = 17;
inline constexpr std::uint16_t kUnreachedDoneButton = 18;

inline constexpr std::uint16_t kTestingPage = 200;
inline constexpr std::uint16_t kBusyBar = 201;
inline constexpr std::uint16_t kBusyText = 202;
inline constexpr std::uint16_t kCancelNote = 203;

inline constexpr std::uint16_t kReachedPage = 300;
inline constexpr std::uint16_t kReachedText = 301;

inline constexpr std::uint16_t kUnreachedPage = 400;
inline constexpr std::uint16_t kUnreachedText = 401;
inline constexpr std::uint16_t kErrorCodeField = 402;

} // namespace brixen::pvn::pvn_workflow::connection
