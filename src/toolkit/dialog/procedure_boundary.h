// The exception boundary of each window procedure and of each layer above one.
#pragma once

#include "toolkit/dialog/modal_run.h"
#include "toolkit/message_numbers.h"
#include "toolkit/platform/toolkit_platform.h"

#include <cstdint>

namespace brixen::zeve {

namespace procedure_boundary_detail {

// The system would ask for an unpainted area again and again.
inline std::intptr_t AnswerAfterException(NativeWindow window, std::uint32_t message, std::uintptr_t wparam,
                                          std::intptr_t lparam) noexcept try {
    return message == kMessagePaint ? platform::DefaultAnswer(window, message, wparam, lparam) : 0;
} catch (...) {
    return 0;
}

} // namespace procedure_boundary_detail

// Returns what `answer` returns for the message. Lets no exception out: it is kept, and ends the innermost
// modal run (see EndInnermostRunByException); the answer is 0 then.
template <class Answer>
std::intptr_t KeepingExceptions(NativeWindow window, std::uint32_t message, std::uintptr_t wparam,
                                std::intptr_t lparam, Answer answer) noexcept try {
    return answer(window, message, wparam, lparam);
} catch (...) {
    EndInnermostRunByException();
    return procedure_boundary_detail::AnswerAfterException(window, message, wparam, lparam);
}

} // namespace brixen::zeve
