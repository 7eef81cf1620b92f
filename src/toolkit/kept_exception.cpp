#include "toolkit/kept_exception.h"

#include <exception>
#include <utility>

namespace brixen::zeve {

namespace {

std::exception_ptr gKept;

} // namespace

void KeepException() noexcept {
    if (!gKept) gKept = std::current_exception();
}

bool IsExceptionKept() noexcept { return gKept != nullptr; }

void ForgetKeptException() noexcept { gKept = nullptr; }

void ThrowKeptException() {
    if (gKept) std::rethrow_exception(std::exchange(gKept, nullptr));
}

} // namespace brixen::zeve
