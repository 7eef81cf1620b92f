// The three window procedures of the toolkit: the platform's trampolines pass each message to one of them.
//
// None lets an exception out: it is kept, and ends a modal run (see EndInnermostRunByException in
// modal_run.h).
#pragma once

#include "toolkit/platform/native_types.h"

#include <cstdint>

namespace brixen::zeve {

// Hands the procedures below to the platform. Later calls change nothing.
void InstallWindowProcedures() noexcept;

// Serves every dialog: finds the ZeveDialog of the window and asks its host.
std::intptr_t DialogProcedure(NativeWindow window, std::uint32_t message, std::uintptr_t wparam,
                              std::intptr_t lparam) noexcept;
// Serves every control: passes keys to the dialog, and moves the focus on Tab. A control cannot be closed.
std::intptr_t ControlProcedure(NativeWindow window, std::uint32_t message, std::uintptr_t wparam,
                               std::intptr_t lparam) noexcept;
// Serves edit controls: reports to the dialog whether the field is empty, then does as ControlProcedure.
std::intptr_t EditProcedure(NativeWindow window, std::uint32_t message, std::uintptr_t wparam,
                            std::intptr_t lparam) noexcept;

} // namespace brixen::zeve
