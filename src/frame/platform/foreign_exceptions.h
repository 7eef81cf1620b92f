// Frames for calls that run code of the host, which another compiler may have made.
//
// Exceptions of this compiler pass both functions as they pass any other. Where the system has no exceptions
// but those, both only make the call.
#pragma once

namespace brixen::pvn {

// What both functions call. It must hold no object with a destructor: an exception of another compiler runs
// none.
using CallWithArgument = void (*)(void* argument);

// Calls `call(argument)` and returns true. Returns false if the call ended by a C++ exception of another
// compiler, the structured exception 0xE06D7363. That exception's object is not destroyed. Any other
// structured exception passes.
[[nodiscard]] bool CallCatchingForeignExceptions(CallWithArgument call, void* argument);

// Calls `call(argument)`. If a structured exception of any code, or a jump, leaves the call because somebody
// above catches it, `undo(argument)` runs before that. No destructor runs then, so `undo` can only use what
// it reaches from `argument` and from process-wide variables; the stack of the call still holds what it held.
// `undo` must not throw.
void CallUndoingWhenLeft(CallWithArgument call, void* argument, CallWithArgument undo);

} // namespace brixen::pvn
