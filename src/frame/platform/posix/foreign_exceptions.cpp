#include "frame/platform/foreign_exceptions.h"

namespace brixen::pvn {

bool CallCatchingForeignExceptions(CallWithArgument call, void* argument) {
    call(argument);
    return true;
}

void CallUndoingWhenLeft(CallWithArgument call, void* argument, CallWithArgument) { call(argument); }

} // namespace brixen::pvn
