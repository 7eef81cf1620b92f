// The life of the context: what Pavane_Initialize makes and Pavane_Terminate frees.
#pragma once

#include "frame/status.h"

#include <cstdint>

namespace brixen::pvn {

// Makes the context from the arguments of Pavane_Initialize. Returns kStatusNoMemory, after logging it, when
// the allocation fails. There must be no context.
[[nodiscard]] Status MakeContext(std::int32_t hostApp, std::uint32_t hostOptions) noexcept;

// Frees the context with all it holds, shuts the resources down, and closes the log. Without a context it
// closes the log alone. The words of FrameState stay as they are.
void FreeContextAndCloseLog() noexcept;

} // namespace brixen::pvn
