// The two frames for the compiler whose own C++ exceptions are the structured exception 0xE06D7363: its catch
// clauses see every one of them, also another runtime's, so only the undoing needs a frame. Written down, not
// tried.
#include "frame/platform/foreign_exceptions.h"

#ifdef _MSC_VER

#include <excpt.h>

namespace brixen::pvn {

bool CallCatchingForeignExceptions(CallWithArgument call, void* argument) {
    call(argument);
    return true;
}

void CallUndoingWhenLeft(CallWithArgument call, void* argument, CallWithArgument undo) {
    __try {
        call(argument);
    } __finally {
        if (_abnormal_termination()) undo(argument);
    }
}

} // namespace brixen::pvn

#endif
