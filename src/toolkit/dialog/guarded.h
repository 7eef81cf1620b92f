// Which exceptions leave the operations of a dialog.
#pragma once

#include "toolkit/kept_exception.h"
#include "toolkit/dialog/modal_run.h"

#include <exception>
#include <stdexcept>
#include <type_traits>

namespace brixen::zeve {

// The object of a pointer; a null one raises the toolkit's error for it.
template <class T>
T& Existing(T* object) {
    if (object == nullptr) throw std::logic_error("nil pointer");
    return *object;
}

namespace guarded_detail {

// An exception is on its way already. One that is kept besides goes to the modal run that will end for it;
// where there is none, it must not come up in an operation that has nothing to do with it.
inline void DropOrphanedException() noexcept {
    if (!IsModalRunUnderWay()) ForgetKeptException();
}

} // namespace guarded_detail

// Runs an operation that can send messages: what its window procedures kept is thrown here. Lets exceptions
// derived from std::exception pass; for any other the result is null, false or nothing.
template <class Operation>
std::invoke_result_t<Operation> Guarded(Operation operation) {
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
        guarded_detail::DropOrphanedException();
        throw;
    } catch (...) {
        guarded_detail::DropOrphanedException();
        return Result();
    }
}

template <class Operation>
void Swallowing(Operation operation) noexcept {
    try {
        operation();
        ThrowKeptException();
    } catch (...) {
        guarded_detail::DropOrphanedException();
    }
}

} // namespace brixen::zeve
