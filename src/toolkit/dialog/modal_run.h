// The modal runs of the toolkit's dialogs: their start, their end, and the effect of the host's quit message.
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
//   it was enabled before. A null parent, a handle that is no window, and the desktop mean no owner.
// - Returns false at once for a dialog without a living window, for one whose outer run has ended, and while
//   a quit message of the host is pending. Such a window is not shown.
// - A quit message that the loop receives is the host's: all runs end with kEndNegative, and the outermost
//   run posts it again when it returns.
// - Throws what the callback throws, also from inside a window procedure, and what a window procedure of the
//   host throws in a message that the loop dispatches. The innermost run throws first, also an exception of a
//   dialog below it.
[[nodiscard]] bool RunModally(DialogLink& dialog, NativeWindow parent);

[[nodiscard]] bool IsModalRunUnderWay() noexcept;
[[nodiscard]] bool IsRunning(const DialogLink& dialog) noexcept;

// Ends the dialog's run, and first the runs above it. A later call replaces the code. Does nothing for a
// dialog without a run.
void EndModalRun(const DialogLink& dialog, std::int32_t code) noexcept;
// Call it inside a catch block of a window procedure. Keeps the exception in flight (see kept_exception.h)
// and ends the innermost run, which throws it.
void EndInnermostRunByException() noexcept;

// Leaves all runs of a stack that was left without destructors: enables owners again and posts a quit message
// of the host again. The objects of the runs must still be in memory.
void AbandonModalRuns() noexcept;

} // namespace brixen::zeve
