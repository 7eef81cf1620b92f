// The boundary to window procedures of the host, around each call of the system that sends or dispatches a
// message.
#pragma once

#include "frame/platform/foreign_exceptions.h"
#include "toolkit/platform/standard_exceptions.h"

#include <windows.h>

#include <stdexcept>

namespace brixen::zeve::platform {

// Returns the result of `call`, a number or a handle. Throws what a window procedure throws in it, as an
// exception derived from std::exception, whichever compiler made that procedure.
template <class Call>
auto CallingProcedures(Call call) {
    struct Frame {
        Call& call;
        decltype(call()) result;
    };
    return WithStandardExceptions([&call] {
        Frame frame{call, {}};
        const bool hasReturned = pvn::CallCatchingForeignExceptions(
            [](void* argument) {
                auto& inside = *static_cast<Frame*>(argument);
                inside.result = inside.call();
            },
            &frame);
        if (!hasReturned) throw std::runtime_error(kForeignException);
        return frame.result;
    });
}

} // namespace brixen::zeve::platform
