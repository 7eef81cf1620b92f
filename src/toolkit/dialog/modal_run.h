// The modal runs of the toolkit's dialogs: how one begins, who ends it, and what a quit message of the host
// does.
//
// Runs nest: an alert runs inside the handler of a message of the dialog below it. The end of a run is a mark
// with a code; the loop looks for it before each wait. A run whose outer run has ended ends too, without
// success. Everything belongs to the thread that made the dialogs.
#pragma once

#include "toolkit/platform/native_types.h"

#include <cstdint>

namespace brixen::zeve {

struct DialogLink;

// The codes with which a run ends.
inline constexpr std::int32_t kEndNegative = 0;
inline constexpr std::int32_t kEndPositive = 1;

// Shows the dialog and handles messages until the run has ended. Returns whether its code is kEndPositive.
//
// - The window that owns a dialog of that parent is disabled meanwhile. On every path it is enabled again, if
// it
//   was enabled before. A null parent, one that is no window, and the desktop count as none.
// - Returns false at once for a dialog without a living window, for one whose outer run has ended, and while
// a quit
//   message of the host waits. Such a window is not shown.
// - A quit message that the loop meets is the host's: all runs end with kEndNegative, and the outermost posts
// it
//   again when it returns.
// - Throws what the callback throws, also out of a window procedure, and what a window procedure of the host
// lets out
//   of a message that the loop dispatches. An exception of a dialog below comes out of the innermost run
//   first.
[[nodiscard]] bool RunModally(DialogLink& dialog, NativeWindow parent);

[[nodiscard]] bool IsModalRunUnderWay() noexcept;
[[nodiscard]] bool IsRunning(const DialogLink& dialog) noexcept;

// Ends the dialog's run, and first those above it. The last code counts. Does nothing for a dialog without a
// run.
void EndModalRun(const DialogLink& dialog, std::int32_t code) noexcept;
// Call it inside a catch block of a window procedure. Keeps the exception in flight (see kept_exception.h)
// and ends the innermost run, which throws it.
void EndInnermostRunByException() noexcept;

// For a stack that was left without destructors: as if all runs had returned. Owners are enabled again, and a
// quit message of the host is posted again. The objects of the runs must still be in memory.
void AbandonModalRuns() noexcept;

} // namespace brixen::zeve
