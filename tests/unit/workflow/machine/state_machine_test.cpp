#include "workflow/machine/action_delegate.h"
#include "workflow/machine/state_machine.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>

namespace brixen::pvn::pvn_workflow {
namespace {

using testing::ElementsAre;

class RecordingDelegate : public PVNActionDelegate {
public:
    void Enter(PVNStateMachine& machine, std::uint16_t state) override { Note("enter", machine, state); }
    void Exit(PVNStateMachine& machine, std::uint16_t state) override { Note("exit", machine, state); }

    std::vector<std::string> notes;

private:
    void Note(const char* what, PVNStateMachine& machine, std::uint16_t state) {
        notes.push_back(std::string(what) + " " + std::to_string(state) + " at " +
                        std::to_string(machine.CurrentState()));
    }
};

class StateMachine : public testing::Test {
protected:
    void SetDelegate(std::uint16_t state) {
        machine.SetProperty(state, kPropertyActionDelegate, static_cast<PVNActionDelegate*>(&delegate));
    }
    void* PropertyOf(std::uint16_t state, std::string_view key) {
        void* value = &absent;
        return machine.GetProperty(state, key, value) ? value : &absent;
    }

    PVNStateMachine machine;
    RecordingDelegate delegate;
    int one = 0, two = 0, absent = 0;
};

TEST_F(StateMachine, IsInNoStateBeforeItIsEntered) { EXPECT_EQ(machine.CurrentState(), kWFState_None); }

TEST_F(StateMachine, ReservedStatesHaveTheirNumbers) {
    EXPECT_EQ(kWFState_Any, 0xFFFD);
    EXPECT_EQ(kWFState_Current, 0xFFFE);
    EXPECT_EQ(kWFState_None, 0xFFFF);
    EXPECT_EQ(kWFState_Done, 32752);
    EXPECT_EQ(kWFState_Exit, 32753);
    EXPECT_EQ(kWFState_BackUnset, 32754);
}

TEST_F(StateMachine, AnEventLeadsToItsTarget) {
    machine.SetTransition(1, 2, "Continue");
    machine.EnterState(1);
    EXPECT_TRUE(machine.CanHandleEvent("Continue"));
    EXPECT_EQ(machine.HandleEvent("Continue"), 2);
    EXPECT_EQ(machine.CurrentState(), 2);
}

TEST_F(StateMachine, AnUnknownEventLeavesStateAndDelegateAlone) {
    machine.SetTransition(1, 2, "Continue");
    SetDelegate(kWFState_Any);
    machine.EnterState(1);
    delegate.notes.clear();
    for (const char* event : {"", "continue", "Continue ", "CONTINUE", "Contin"}) {
        EXPECT_FALSE(machine.CanHandleEvent(event)) << event;
        EXPECT_EQ(machine.HandleEvent(event), 1) << event;
    }
    EXPECT_THAT(delegate.notes, ElementsAre());
}

TEST_F(StateMachine, TheLaterTransitionHoldsAndTheEarlierProperty) {
    machine.SetTransition(1, 2, "Continue");
    machine.SetTransition(1, 3, "Continue");
    machine.EnterState(1);
    EXPECT_EQ(machine.HandleEvent("Continue"), 3);

    EXPECT_TRUE(machine.SetProperty(1, "key", &one));
    EXPECT_FALSE(machine.SetProperty(1, "key", &two));
    EXPECT_EQ(PropertyOf(1, "key"), &one);
}

TEST_F(StateMachine, AWildcardPropertyIsFoundFromEachStateAndRemovedFromNone) {
    machine.SetProperty(kWFState_Any, "key", &one);
    EXPECT_EQ(PropertyOf(7, "key"), &one);
    EXPECT_EQ(PropertyOf(kWFState_Done, "key"), &one);
    EXPECT_EQ(machine.RemoveProperty(7, "key"), nullptr);
    EXPECT_EQ(machine.RemoveProperty(kWFState_Any, "key"), &one);
    EXPECT_EQ(machine.RemoveProperty(kWFState_Any, "key"), nullptr);
    EXPECT_EQ(PropertyOf(7, "key"), &absent);
}

TEST_F(StateMachine, AStatesOwnPropertyHidesTheCommonOne) {
    machine.SetProperty(kWFState_Any, "key", &one);
    machine.SetProperty(7, "key", &two);
    EXPECT_EQ(PropertyOf(7, "key"), &two);
    EXPECT_EQ(PropertyOf(8, "key"), &one);
}

TEST_F(StateMachine, ANullPropertyIsThere) {
    machine.SetProperty(1, "key", nullptr);
    EXPECT_EQ(PropertyOf(1, "key"), nullptr);
}

TEST_F(StateMachine, AnAbsentPropertyLeavesTheVariableAlone) {
    void* value = &two;
    EXPECT_FALSE(machine.GetProperty(1, "key", value));
    EXPECT_EQ(value, &two);
}

TEST_F(StateMachine, TheCurrentStateIsResolvedInPropertyCalls) {
    machine.EnterState(5);
    machine.SetProperty(kWFState_Current, "key", &one);
    EXPECT_EQ(PropertyOf(5, "key"), &one);
    EXPECT_EQ(PropertyOf(kWFState_Current, "key"), &one);
    EXPECT_EQ(PropertyOf(6, "key"), &absent);
    EXPECT_EQ(machine.RemoveProperty(kWFState_Current, "key"), &one);
}

TEST_F(StateMachine, StatesAreListedAsSignedNumbersAndOnlyWithTransitions) {
    for (const int state : {7, 3, 0xFFF0, 0x7FEF, 0})
        machine.SetTransition(static_cast<std::uint16_t>(state), kWFState_Done, "e");
    machine.SetProperty(5, "key", &one);
    EXPECT_THAT(machine.ListStates(), ElementsAre(0xFFF0, 0, 3, 7, 0x7FEF));
    EXPECT_TRUE(machine.HasTransitions(7));
    EXPECT_FALSE(machine.HasTransitions(5));
}

TEST_F(StateMachine, StatesNeedNotBeNumberedInARow) {
    const std::uint16_t states[] = {0x8000, 0xFFF0, 2, 3, 5, 8, 9, 40, 0x7FEF, 0x7FFF};
    for (const std::uint16_t state : states) {
        machine.SetTransition(state, static_cast<std::uint16_t>(state ^ 1), "e");
        machine.SetProperty(state, "key", &one);
    }
    machine.SetProperty(kWFState_Any, "key", &two);
    for (const std::uint16_t state : states) {
        machine.EnterState(state);
        EXPECT_EQ(machine.HandleEvent("e"), state ^ 1) << state;
        EXPECT_EQ(PropertyOf(state, "key"), &one) << state;
    }
    for (const int state : {0x8001, 0xFFEF, 0, 1, 4, 6, 7, 39, 41, 0x7FEE, 0x7FF0, 0x7FFE}) {
        EXPECT_FALSE(machine.HasTransitions(static_cast<std::uint16_t>(state))) << state;
        EXPECT_EQ(PropertyOf(static_cast<std::uint16_t>(state), "key"), &two) << state;
    }
}

TEST_F(StateMachine, EventsOfOneRowDifferByEveryByte) {
    const char* const events[] = {"next", "nexT", "Next", "next ", "nex", ""};
    std::uint16_t target = 10;
    for (const char* event : events) machine.SetTransition(1, target++, event);
    target = 10;
    for (const char* event : events) {
        machine.EnterState(1);
        EXPECT_EQ(machine.HandleEvent(event), target++) << event;
    }
    machine.EnterState(1);
    EXPECT_EQ(machine.HandleEvent("text"), 1);
}

TEST_F(StateMachine, TheOldStateIsCurrentDuringAChange) {
    machine.SetTransition(1, 2, "Continue");
    SetDelegate(kWFState_Any);
    machine.EnterState(1);
    machine.HandleEvent("Continue");
    EXPECT_THAT(delegate.notes, ElementsAre("enter 1 at 1", "exit 1 at 1", "enter 2 at 1"));
}

TEST_F(StateMachine, AnEndStateGetsItsEnterToo) {
    machine.SetTransition(1, kWFState_Done, "Done");
    SetDelegate(kWFState_Any);
    machine.EnterState(1);
    EXPECT_EQ(machine.HandleEvent("Done"), kWFState_Done);
    EXPECT_THAT(delegate.notes, ElementsAre("enter 1 at 1", "exit 1 at 1", "enter 32752 at 1"));
}

TEST_F(StateMachine, TheStateChangesEvenWithoutADelegate) {
    machine.SetTransition(1, 2, "Continue");
    machine.SetTransition(2, 1, "Continue");
    SetDelegate(2);
    machine.EnterState(1);
    EXPECT_EQ(machine.HandleEvent("Continue"), 2);
    EXPECT_EQ(machine.HandleEvent("Continue"), 1);
    EXPECT_THAT(delegate.notes, ElementsAre("enter 2 at 1", "exit 2 at 2"));
}

TEST_F(StateMachine, AnEventInAStateWithoutTransitionsIsAnError) {
    machine.SetTransition(1, 2, "Continue");
    EXPECT_FALSE(machine.CanHandleEvent("Continue"));
    EXPECT_THROW(machine.HandleEvent("Continue"), std::out_of_range);
    machine.EnterState(2);
    EXPECT_FALSE(machine.CanHandleEvent("Continue"));
    EXPECT_THROW(machine.HandleEvent("Continue"), std::out_of_range);
    EXPECT_EQ(machine.CurrentState(), 2);
}

class ThrowingDelegate : public PVNActionDelegate {
public:
    void Enter(PVNStateMachine&, std::uint16_t) override { throw std::runtime_error("enter"); }
    void Exit(PVNStateMachine&, std::uint16_t) override {}
};

TEST_F(StateMachine, AnExceptionOfTheDelegateLeavesTheOldState) {
    ThrowingDelegate throwing;
    machine.SetTransition(1, 2, "Continue");
    machine.SetProperty(2, kPropertyActionDelegate, static_cast<PVNActionDelegate*>(&throwing));
    machine.EnterState(1);
    EXPECT_THROW(machine.HandleEvent("Continue"), std::runtime_error);
    EXPECT_EQ(machine.CurrentState(), 1);
}

} // namespace
} // namespace brixen::pvn::pvn_workflow
