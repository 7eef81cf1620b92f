// The modal runs of the toolkit's dialogs. Runs stand inside each other: an alert runs inside the handler of
// a message of the dialog below it. Everything belongs to the thread that made the dialogs.
#pragma once

#include "toolkit/platform/native_types.h"

#include <cstdint>

namespace brixen::zeve {

struct DialogLink;

// What the loop's quit message carries. Any other code counts as negative.
inline constexpr std::int32_t kQuitNegative = 0;
inline constexpr std::int32_t kQuitPositive = 1;

// Shows the dialog and handles messages until a quit message comes. True if its code was kQuitPositive. The
// parent is disabled meanwhile, and enabled again on every path; a null or dead one counts as none. Without a
// living window it returns false at once. Throws what the callback throws, also out of a window procedure.
bool RunModally(DialogLink& dialog, NativeWindow parent);

bool IsModalRunUnderWay() noexcept;
bool IsRunning(const DialogLink& dialog) noexcept;
// Ends the dialog's run with that code. Where other dialogs run above it, those end first, each with
// kQuitNegative. For a dialog that does not run, the quit goes to whichever loop is the innermost.
void EndRun(const DialogLink& dialog, std::int32_t code) noexcept;
// Ends the innermost run with kQuitNegative; does nothing if there is none.
void AbortInnermostRun() noexcept;

} // namespace brixen::zeve
