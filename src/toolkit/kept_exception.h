// Carries an exception out of a window procedure, which must not throw. The procedure keeps it here and ends
// the modal loop; the owner of the loop, or the code that made a call which can send messages, throws it
// again. The loop still handles the messages posted before its end, but no host is called for them.
#pragma once

namespace brixen::zeve {

// Keeps the present exception, unless an earlier one is kept. Call it inside a catch block.
void KeepException() noexcept;
[[nodiscard]] bool IsExceptionKept() noexcept;
void ForgetKeptException() noexcept;
// Throws the kept exception, if there is one, and forgets it.
void ThrowKeptException();

} // namespace brixen::zeve
