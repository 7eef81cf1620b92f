#include "workflow/machine/nav_state_machine.h"

namespace brixen::pvn::pvn_workflow {

void PVNNavStateMachine::AddBackOverride(std::uint16_t arrival, std::uint16_t fromState,
                                         std::uint16_t backTarget) {
    backOverrides.push_back({arrival, fromState, backTarget});
}

bool PVNNavStateMachine::CanHandleEvent(std::string_view event) const {
    return PVNStateMachine::CanHandleEvent(demoMode ? kEventNextForDemo : event);
}

std::uint16_t PVNNavStateMachine::HandleEvent(std::string_view event) {
    if (demoMode) return PVNStateMachine::HandleEvent(kEventNextForDemo);
    const std::uint16_t from = CurrentState();
    const std::uint16_t to = PVNStateMachine::HandleEvent(event);
    if (to == from || event == kEventGoBack) return to;
    if (PVNStateMachine::CanHandleEvent(kEventGoBack)) SetTransition(to, BackTarget(from, to), kEventGoBack);
    return to;
}

std::uint16_t PVNNavStateMachine::BackTarget(std::uint16_t from, std::uint16_t to) const {
    for (const auto& entry : backOverrides) {
        if (entry.arrival == to && entry.fromState == from) return entry.backTarget;
    }
    return from;
}

void PVNNavStateMachine::SetDemoMode(bool on) {
    demoMode = on;
    if (!on) return;
    const auto states = ListStates();
    startState = states.at(0);
    for (std::size_t i = 0; i < states.size(); ++i) {
        const bool isLast = i + 1 == states.size();
        SetTransition(states[i], isLast ? kWFState_Done : states[i + 1], kEventNextForDemo);
    }
}

} // namespace brixen::pvn::pvn_workflow
