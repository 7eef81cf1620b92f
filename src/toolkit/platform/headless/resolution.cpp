#include "toolkit/platform/headless/headless.h"

#include <utility>

namespace brixen::zeve::platform {

using headless::HandleNumber;
using headless::Record;
using headless::State;

NativeDpiContext SetDpiUnaware() noexcept {
    Record("SetDpiUnaware");
    if (headless::Refuses(State().refuseDpiContext)) return nullptr;
    return std::exchange(State().dpiContext, headless::kDpiUnaware);
}

void RestoreDpi(NativeDpiContext former) noexcept {
    Record("RestoreDpi", nullptr, {HandleNumber(former)});
    if (former != nullptr) State().dpiContext = former;
}

} // namespace brixen::zeve::platform
