// The interface that a state machine calls when its state changes. The machine knows nothing else of panes or
// windows.
#pragma once

#include <cstdint>

namespace brixen::pvn::pvn_workflow {

class PVNStateMachine;

class PVNActionDelegate {
public:
    virtual ~PVNActionDelegate() = default;
    // `state` is the state being entered or left. The machine reports the old state during both calls, so
    // neither may send it an event. Both may throw; the machine then remains in the old state.
    virtual void Enter(PVNStateMachine& machine, std::uint16_t state) = 0;
    virtual void Exit(PVNStateMachine& machine, std::uint16_t state) = 0;
};

} // namespace brixen::pvn::pvn_workflow
