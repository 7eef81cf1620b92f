// What panes need of the system besides the windows of toolkit/platform/toolkit_platform.h. Nothing here
// throws.
#pragma once

#include <cstdint>

namespace brixen::pvn::pvn_workflow::platform {

// Whether the user asked the system for strong contrasts.
bool IsHighContrast() noexcept;

// Has the shell start a program with that command line; `showCommand` is how its window is to come up. A
// failure has no consequence but false.
bool StartProgram(const char16_t* program, const char16_t* arguments, std::int32_t showCommand) noexcept;

} // namespace brixen::pvn::pvn_workflow::platform
