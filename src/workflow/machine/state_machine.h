// The state machine under every workflow: a current state, a table of transitions (state, event name, target)
// and a table of named properties for each state. Events are plain text, compared exactly; an unknown event
// changes nothing.
//
// A state is a 16-bit number. In the tables it sorts as a signed one, so that the wildcard row comes first.
#pragma once

#include "workflow/machine/state_table.h"

#include <cstdint>
#include <string_view>
#include <vector>

namespace brixen::pvn::pvn_workflow {

inline constexpr std::uint16_t kWFState_Any = 0xFFFD;     // the row of properties that hold for all states
inline constexpr std::uint16_t kWFState_Current = 0xFFFE; // in a property call: the current state
inline constexpr std::uint16_t kWFState_None = 0xFFFF;    // before a run
inline constexpr std::uint16_t kWFState_Done = 0x7FF0;    // the workflow ended in its own right
inline constexpr std::uint16_t kWFState_Exit = 0x7FF1; // the workflow was left, see PvnWFKey_WorkFlowResult
inline constexpr std::uint16_t kWFState_BackUnset = 0x7FF2; // target of a back transition not taken yet

inline constexpr std::string_view kPropertyActionDelegate =
    "Property_Key_Action_Delegate";                                                 // PVNActionDelegate*
inline constexpr std::string_view kPropertyPaneObject = "Property_Key_Pane_Object"; // PVNPane*
inline constexpr std::string_view kPropertyWorkflowContext =
    "Property_Key_Workflow_Context"; // PVNWorkFlowContext*

class PVNStateMachine {
public:
    PVNStateMachine() = default;
    PVNStateMachine(const PVNStateMachine&) = delete;
    PVNStateMachine& operator=(const PVNStateMachine&) = delete;
    virtual ~PVNStateMachine() = default;

    // For building. The last call for a state and event wins.
    void SetTransition(std::uint16_t from, std::uint16_t to, std::string_view event);
    // For building. Intentional: the first call for a state and key wins, unlike SetTransition. Returns
    // whether the value was stored. The machine borrows it.
    bool SetProperty(std::uint16_t state, std::string_view key, void* value);

    // Looks in the row of the state, then in the wildcard row. Returns false and leaves `value` alone if
    // neither has the key.
    bool GetProperty(std::uint16_t state, std::string_view key, void*& value) const;
    // Looks in the row of the state only. Returns what was stored, or null.
    void* RemoveProperty(std::uint16_t state, std::string_view key) noexcept;
    // Returns the states with at least one transition, ascending as signed numbers.
    std::vector<std::uint16_t> ListStates() const { return transitions.States(); }
    bool HasTransitions(std::uint16_t state) const { return transitions.Find(state) != nullptr; }

    std::uint16_t CurrentState() const { return currentState; }
    // Makes `state` current, then calls Enter on its delegate. Kept: no Exit.
    void EnterState(std::uint16_t state);

    virtual bool CanHandleEvent(std::string_view event) const;
    // Returns the state after the event. Throws std::out_of_range in a state without a row: every state that
    // can be current must have a transition.
    virtual std::uint16_t HandleEvent(std::string_view event);
    // Calls Exit on the delegate of `from` and Enter on that of `to`, where there are any.
    virtual void OnStateChange(std::uint16_t from, std::uint16_t to);

private:
    std::uint16_t Resolve(std::uint16_t state) const {
        return state == kWFState_Current ? currentState : state;
    }

    std::uint16_t currentState = kWFState_None;
    StateTable<std::uint16_t> transitions;
    StateTable<void*> properties;
};

} // namespace brixen::pvn::pvn_workflow
