// The two ways in which a call ends early: its time limit and the cancel event.
#pragma once

#include "frame/status.h"
#include "net/platform/net_platform.h"

#include <cstdint>

namespace brixen::pvn {

// The cancel event is shared by all processes of the session. A signal ends one wait; while a handle is open,
// a signal that nobody waits for stays and ends the next wait.
[[nodiscard]] EventHandle MakeCancelEvent() noexcept;

// The same without a signal, for the owner of a call that is about to begin: a cancel from now on ends the
// call, as long as the handle is open, and no earlier one does. Null on failure.
[[nodiscard]] EventHandle MakeClearCancelEvent() noexcept;

// Ends a call that waits, wherever it is. Does nothing when no cancel event is open. Any thread.
void CancelTransaction() noexcept;

// Returns kStatusCallCanceled or kStatusCallTimedOut after a wait that the limit ended, and otherwise 0.
[[nodiscard]] Status StatusOfWait(WaitResult result) noexcept;

// The limit of one call, from its construction on. It holds the cancel event open; without one the call
// cannot be canceled.
class CallLimit {
public:
    explicit CallLimit(std::uint16_t timeoutSeconds) noexcept;

    // Waits for `done`, the cancel event (kSecond) or the end of the limit. `done` counts first.
    [[nodiscard]] WaitResult Await(NativeEvent done) const noexcept;

    // The whole limit, whatever is left of it.
    [[nodiscard]] std::uint32_t Milliseconds() const noexcept { return milliseconds; }

private:
    [[nodiscard]] std::uint32_t MillisecondsLeft() const noexcept;

    EventHandle cancel;
    std::uint32_t start; // tick count
    std::uint32_t milliseconds;
};

} // namespace brixen::pvn
