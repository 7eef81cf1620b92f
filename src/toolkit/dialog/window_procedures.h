// The three window procedures of the toolkit: the platform's trampolines hand each message to one of them.
// None lets an exception out; see kept_exception.h.
#pragma once

#include "toolkit/platform/native_types.h"

#include <cstdint>

namespace brixen::zeve {

// Hands the procedures below to the platform. Calling it again is harmless.
void InstallWindowProcedures() noexcept;

// Serves every dialog: finds the ZeveDialog of the window and asks its host.
std::intptr_t DialogProcedure(NativeWindow window, std::uint32_t message, std::uintptr_t wparam,
                              std::intptr_t lparam) noexcept;
// Serves every control: hands keys on to the dialog, and Tab to the next control. A control is not closed.
std::intptr_t ControlProcedure(NativeWindow window, std::uint32_t message, std::uintptr_t wparam,
                               std::intptr_t lparam) noexcept;
// Serves edit controls: tells the dialog whether the field is empty, then goes on as ControlProcedure.
std::intptr_t EditProcedure(NativeWindow window, std::uint32_t message, std::uintptr_t wparam,
                            std::intptr_t lparam) noexcept;

} // namespace brixen::zeve
