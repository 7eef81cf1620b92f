// Runs something when a block is left, whichever way.
#pragma once

#include <utility>

namespace brixen::pvn::pvn_workflow {

template <class Leave>
class ScopeGuard {
public:
    // `action` must not throw.
    explicit ScopeGuard(Leave action) : leave(std::move(action)) {}
    ScopeGuard(const ScopeGuard&) = delete;
    ScopeGuard& operator=(const ScopeGuard&) = delete;
    ~ScopeGuard() { leave(); }

private:
    Leave leave;
};

} // namespace brixen::pvn::pvn_workflow
