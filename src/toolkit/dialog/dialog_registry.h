// ZeveDialogRegistry: all live dialogs of the process, so that a window procedure finds the dialog of its
// window.
#pragma once

#include "toolkit/platform/native_types.h"

namespace brixen::zeve {

struct DialogLink;

// The registry keeps the order of registration and has no lock. A dialog is in it from the end of its making
// to the start of its deletion.
void RegisterDialog(DialogLink& dialog);
void UnregisterDialog(DialogLink& dialog) noexcept;
// Returns the first live dialog whose root box has this top-level window; null if there is none.
[[nodiscard]] DialogLink* DialogOfWindow(NativeWindow window) noexcept;

} // namespace brixen::zeve
