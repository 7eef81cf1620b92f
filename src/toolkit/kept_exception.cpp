#include "toolkit/kept_exception.h"

#include "toolkit/toolkit_state.h"

#include <exception>
#include <utility>

namespace brixen::zeve {

void KeepException() noexcept {
    if (!gToolkit.keptException) gToolkit.keptException = std::current_exception();
}

bool IsExceptionKept() noexcept { return gToolkit.keptException != nullptr; }

void ForgetKeptException() noexcept { gToolkit.keptException = nullptr; }

void ThrowKeptException() {
    if (gToolkit.keptException) std::rethrow_exception(std::exchange(gToolkit.keptException, nullptr));
}

} // namespace brixen::zeve
