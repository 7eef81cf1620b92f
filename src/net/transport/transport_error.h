// The statuses and the log line of the system's errors.
#pragma once

#include "frame/status.h"

#include <cstdint>

namespace brixen::pvn {

// Returns the status for a number of the system's errors; 0 for 0.
[[nodiscard]] Status MapTransportError(std::uint32_t systemError) noexcept;

// Logs the error and returns its status.
Status LogTransportError(std::uint32_t systemError) noexcept;

} // namespace brixen::pvn
