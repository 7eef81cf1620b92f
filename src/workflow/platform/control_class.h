// A window class of the library's own for controls that no class of the system can be. Nothing here throws.
// Everything belongs to the thread of the windows.
#pragma once

#include "toolkit/platform/native_types.h"
#include "toolkit/platform/toolkit_platform.h"

#include <cstdint>

namespace brixen::pvn::pvn_workflow::platform {

inline constexpr std::uint32_t kRedrawsWhenResized = 3; // CS_HREDRAW and CS_VREDRAW

struct ControlClass {
    const char16_t* name = u"";
    std::uint32_t style = 0;
    std::int32_t windowBytes = 0; // of memory that each window has for numbers
    zeve::platform::WindowProcedure procedure = nullptr;
};

// Registers the class with the arrow cursor and without a background, for the life of the process. A process
// has one such class: later calls change nothing. Returns whether there is one.
[[nodiscard]] bool RegisterControlClass(const ControlClass& controlClass) noexcept;

// Stores a number in the memory of a window, and reads it. An offset outside the memory is 0 and stores
// nothing.
void StoreInWindow(zeve::NativeWindow window, std::int32_t offset, std::intptr_t number) noexcept;
[[nodiscard]] std::intptr_t NumberInWindow(zeve::NativeWindow window, std::int32_t offset) noexcept;

} // namespace brixen::pvn::pvn_workflow::platform
