// An action that runs when its block is left, by return or by exception.
#pragma once

#include <utility>

namespace brixen::pvn::pvn_workflow {

// The action must not throw.
template <class Action>
class ScopeGuard {
public:
    explicit ScopeGuard(Action action) : action(std::move(action)) {}
    ScopeGuard(const ScopeGuard&) = delete;
    ScopeGuard& operator=(const ScopeGuard&) = delete;
    ~ScopeGuard() { action(); }

private:
    Action action;
};

} // namespace brixen::pvn::pvn_workflow
