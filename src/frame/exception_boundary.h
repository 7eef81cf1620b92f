// The exception boundary: the one function in which exceptions end and become a status.
#pragma once

#include "frame/status.h"

namespace brixen::pvn {

// Returns the status that `call` returns, or kStatusException after any exception, of any type. Nothing else
// about the exception is kept or logged.
template <class Call>
[[nodiscard]] Status StatusAtBoundary(Call&& call) noexcept {
    try {
        return call();
    } catch (...) {
        return kStatusException;
    }
}

} // namespace brixen::pvn
