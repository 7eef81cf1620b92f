// What panes need of the system besides the windows of toolkit/platform/toolkit_platform.h. Nothing here
// throws. Everything belongs to the thread that runs the workflow.
#pragma once

#include "toolkit/platform/native_types.h"

#include <cstdint>

namespace brixen::pvn::pvn_workflow::platform {

// Returns whether the user asked the system for strong contrasts.
bool IsHighContrast() noexcept;

// Hides the caret of an edit control that has just taken the focus, until it takes the focus again.
void HideCaret(zeve::NativeWindow edit) noexcept;

// Has the shell start a program with that command line. `showCommand` is kShowRestored. Returns whether the
// program was started.
bool StartProgram(const char16_t* program, const char16_t* arguments, std::int32_t showCommand) noexcept;

} // namespace brixen::pvn::pvn_workflow::platform
