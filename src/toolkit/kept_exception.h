// Carries an exception out of a window procedure, which must not throw. The procedure keeps it here and ends
// the modal run. The owner of the run's loop, or the code that made a call which can send messages, throws it
// again. The loop takes no further message; until the exception is thrown, no host is called for a message
// that is sent. Messages that are posted stay in the queue for the next loop.
#pragma once

namespace brixen::zeve {

// Keeps the exception in flight, unless an earlier one is kept. Call it inside a catch block.
void KeepException() noexcept;
[[nodiscard]] bool IsExceptionKept() noexcept;
void ForgetKeptException() noexcept;
// Throws the kept exception, if there is one, and forgets it.
void ThrowKeptException();

} // namespace brixen::zeve
