// The exception boundary around each function of zeve_dialog.h.
#pragma once

#include "toolkit/dialog/modal_run.h"
#include "toolkit/kept_exception.h"

#include <exception>
#include <stdexcept>
#include <type_traits>

namespace brixen::zeve {

// Returns the object of a pointer. Throws std::logic_error "nil pointer" for null.
template <class T>
T& Existing(T* object) {
    if (object == nullptr) throw std::logic_error("nil pointer");
    return *object;
}

namespace operation_boundary_detail {

// Called while another exception is in flight. A kept exception belongs to the modal run that it ends.
// Without a run it is dropped, so that no later, unrelated operation throws it.
inline void DropOrphanedException() noexcept {
    if (!IsModalRunUnderWay()) ForgetKeptException();
}

} // namespace operation_boundary_detail

// Runs an operation that can send messages, then throws the exception that a window procedure kept. Lets
// exceptions derived from std::exception pass; for any other the result is null, false or nothing.
template <class Operation>
std::invoke_result_t<Operation> PassingStandardExceptions(Operation operation) {
    using Result = std::invoke_result_t<Operation>;
    try {
        if constexpr (std::is_void_v<Result>) {
            operation();
            ThrowKeptException();
        } else {
            Result result = operation();
            ThrowKeptException();
            return result;
        }
    } catch (const std::exception&) {
        operation_boundary_detail::DropOrphanedException();
        throw;
    } catch (...) {
        operation_boundary_detail::DropOrphanedException();
        return Result();
    }
}

// Runs such an operation and swallows every exception of its own. One that was kept before stays for the run
// that it ends.
template <class Operation>
void SwallowingExceptions(Operation operation) noexcept {
    const bool isKeptBefore = IsExceptionKept();
    try {
        operation();
        if (!isKeptBefore) ThrowKeptException();
    } catch (...) {
        operation_boundary_detail::DropOrphanedException();
    }
}

} // namespace brixen::zeve
