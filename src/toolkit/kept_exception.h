// No exception may leave a window procedure. One that would is kept here, the modal loop is ended, and the
// loop's owner, or whoever made a call that can send messages, throws it again on its own frame. A loop
// handles what was posted before its end; meanwhile no host is asked, as if its code had been left already.
#pragma once

namespace brixen::zeve {

// Keeps the exception in flight, unless an earlier one is kept already. Call it inside a catch block.
void KeepException() noexcept;
bool IsExceptionKept() noexcept;
void ForgetKeptException() noexcept;
// Throws the kept exception, if there is one, and forgets it.
void ThrowKeptException();

} // namespace brixen::zeve
