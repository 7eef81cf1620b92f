// Input that was meant for what the screen showed a moment ago.
#pragma once

#include <windows.h>

namespace brixen::zeve::platform {

// Returns whether `message`, just taken from the queue, is not to be handed out, because its user could not
// yet see what it would do:
// - the second press of a double click if another window has come to its place since the first one;
// - the repetition of an Esc key that is held down, which would answer one page after the other.
// It is to see every message of the loop, in their order.
[[nodiscard]] bool IsHastyInput(const MSG& message) noexcept;

} // namespace brixen::zeve::platform
