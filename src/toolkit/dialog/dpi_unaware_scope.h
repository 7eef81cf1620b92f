// While one of these lives, the calling thread measures and shows windows at 96 pixels an inch, whatever the
// screen has, and the system scales them. Sizes in views are whole pixels at that resolution.
//
// Make it before anything is measured and keep it until the windows are gone. Where the system has no such
// contexts, nothing changes.
#pragma once

#include "toolkit/platform/native_types.h"

namespace brixen::zeve {

class DpiUnawareScope {
public:
    DpiUnawareScope() noexcept;
    DpiUnawareScope(const DpiUnawareScope&) = delete;
    DpiUnawareScope& operator=(const DpiUnawareScope&) = delete;
    ~DpiUnawareScope();

    // For a stack that was left without destructors: ends all scopes. Their objects must still be in memory.
    static void AbandonAll() noexcept;

private:
    void Leave() noexcept;

    NativeDpiContext former;
    DpiUnawareScope* outer;
};

} // namespace brixen::zeve
