// A state machine with back navigation and a walk-through mode.
//
// There is no history. A state that wants a back step has a transition on kEventGoBack, at first to
// kWFState_BackUnset; each forward arrival rewrites its target to where the user came from. Overrides serve
// states that are only passed through.
#pragma once

#include "workflow/machine/state_machine.h"

#include <vector>

namespace brixen::pvn::pvn_workflow {

inline constexpr std::string_view kEventGoBack = "GoBackToPreviousWorkFlowState";
inline constexpr std::string_view kEventNextForDemo = "GoToNextStateForDemo";

class PVNNavStateMachine : public PVNStateMachine {
public:
    // After an arrival at `arrival` from `fromState`, Back leads to `backTarget`. The first override for a
    // pair counts.
    void AddBackOverride(std::uint16_t arrival, std::uint16_t fromState, std::uint16_t backTarget);

    bool CanHandleEvent(std::string_view event) const override;
    std::uint16_t HandleEvent(std::string_view event) override;
    // On: the machine becomes a tour of its states in ascending order, whatever the event. The states are
    // those with a transition at the call. Throws std::out_of_range if there are none.
    virtual void SetDemoMode(bool on);
    // Runs to an end state. Returns whether that was kWFState_Done.
    virtual bool Run() = 0;

    std::uint16_t startState = kWFState_None; // where Run enters; set while the workflow is built

private:
    struct BackOverride {
        std::uint16_t arrival, fromState, backTarget;
    };

    std::uint16_t BackTarget(std::uint16_t from, std::uint16_t to) const;

    bool demoMode = false;
    std::vector<BackOverride> backOverrides; // in the order of insertion
};

} // namespace brixen::pvn::pvn_workflow
