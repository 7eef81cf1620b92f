#include "toolkit/dialog/dpi_unaware_scope.h"

#include "toolkit/platform/toolkit_platform.h"
#include "toolkit/toolkit_state.h"

namespace brixen::zeve {

DpiUnawareScope::DpiUnawareScope() noexcept
    : former(platform::SetDpiUnaware()), outer(gToolkit.innermostDpiScope) {
    gToolkit.innermostDpiScope = this;
}

DpiUnawareScope::~DpiUnawareScope() { Leave(); }

void DpiUnawareScope::AbandonAll() noexcept {
    while (gToolkit.innermostDpiScope != nullptr) gToolkit.innermostDpiScope->Leave();
}

void DpiUnawareScope::Leave() noexcept {
    platform::RestoreDpi(former);
    gToolkit.innermostDpiScope = outer;
}

} // namespace brixen::zeve
