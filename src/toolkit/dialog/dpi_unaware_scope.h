// A scope in which the calling thread measures and shows windows at 96 pixels an inch, whatever the screen
// has. The system scales the windows. Sizes in views are whole pixels at that resolution.
//
// Make it before anything is measured and keep it until the windows are gone. It changes nothing on a system
// without such contexts.
#pragma once

#include "toolkit/platform/native_types.h"

namespace brixen::zeve {

class DpiUnawareScope {
public:
    [[nodiscard]] DpiUnawareScope() noexcept;
    DpiUnawareScope(const DpiUnawareScope&) = delete;
    DpiUnawareScope& operator=(const DpiUnawareScope&) = delete;
    ~DpiUnawareScope();

    // Ends all scopes of a stack that was left without destructors. Their objects must still be in memory.
    static void AbandonAll() noexcept;

private:
    void Leave() noexcept;

    NativeDpiContext former;
    DpiUnawareScope* outer;
};

} // namespace brixen::zeve
