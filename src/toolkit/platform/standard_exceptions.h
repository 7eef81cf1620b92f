// Turns exceptions of the host's window procedures into exceptions that every operation lets pass.
#pragma once

#include <exception>
#include <stdexcept>

namespace brixen::zeve::platform {

inline constexpr char kForeignException[] = "a window procedure of the host threw an exception";

// Returns the result of `call`. Lets exceptions derived from std::exception pass; any other becomes a
// std::runtime_error.
template <class Call>
auto WithStandardExceptions(Call call) {
    try {
        return call();
    } catch (const std::exception&) {
        throw;
    } catch (...) {
        throw std::runtime_error(kForeignException);
    }
}

} // namespace brixen::zeve::platform
