#include "workflow/machine/nav_state_machine.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>

namespace brixen::pvn::pvn_workflow {
namespace {

using testing::ElementsAre;

class Machine : public PVNNavStateMachine {
public:
    bool Run() override {
        EnterState(startState);
        return true;
    }
};

constexpr std::uint16_t A = 1, B = 2, C = 3, Y = 8, Z = 9;

class NavStateMachine : public testing::Test {
protected:
    // A, B and C lead to each other by name; B and C have a back step.
    void SetUp() override {
        const std::pair<std::uint16_t, const char*> targets[] = {{A, "ToA"}, {B, "ToB"}, {C, "ToC"}};
        for (std::uint16_t from : {A, B, C, Y}) {
            for (const auto& [to, event] : targets) machine.SetTransition(from, to, event);
        }
        machine.SetTransition(Z, A, "ToA");
        machine.SetTransition(B, kWFState_BackUnset, kEventGoBack);
        machine.SetTransition(C, kWFState_BackUnset, kEventGoBack);
        machine.startState = A;
        machine.Run();
    }

    std::uint16_t Back() { return machine.HandleEvent(kEventGoBack); }

    Machine machine;
};

TEST_F(NavStateMachine, ReservedEventsHaveTheirTexts) {
    EXPECT_EQ(kEventGoBack, "GoBackToPreviousWorkFlowState");
    EXPECT_EQ(kEventNextForDemo, "GoToNextStateForDemo");
}

TEST_F(NavStateMachine, BackLeadsToThePreviousState) {
    machine.HandleEvent("ToB");
    EXPECT_EQ(Back(), A);
}

TEST_F(NavStateMachine, BackStepsFollowTheLinksOfTheArrivals) {
    machine.HandleEvent("ToB");
    machine.HandleEvent("ToC");
    EXPECT_EQ(Back(), B);
    EXPECT_EQ(Back(), A);
}

TEST_F(NavStateMachine, EachForwardArrivalRewritesTheLink) {
    machine.HandleEvent("ToC");
    machine.HandleEvent("ToB");
    EXPECT_EQ(Back(), C);
    EXPECT_EQ(Back(), A);
    machine.HandleEvent("ToB");
    EXPECT_EQ(Back(), A);
}

TEST_F(NavStateMachine, AStateWithoutABackStepGetsNone) {
    machine.HandleEvent("ToB");
    machine.HandleEvent("ToA");
    EXPECT_FALSE(machine.CanHandleEvent(kEventGoBack));
    EXPECT_EQ(Back(), A);
}

TEST_F(NavStateMachine, AnEventThatDoesNotMoveRewritesNothing) {
    machine.HandleEvent("ToB");
    EXPECT_EQ(machine.HandleEvent("ToB"), B);
    EXPECT_EQ(machine.HandleEvent("Unknown"), B);
    EXPECT_EQ(Back(), A);
}

TEST_F(NavStateMachine, ABackStepThatWasNeverSetLeadsToItsMarker) {
    machine.EnterState(B);
    EXPECT_EQ(Back(), kWFState_BackUnset);
}

TEST_F(NavStateMachine, AnOverrideHoldsForItsPairOnly) {
    machine.AddBackOverride(B, A, Z);
    machine.HandleEvent("ToB");
    EXPECT_EQ(Back(), Z);
    machine.EnterState(C);
    machine.HandleEvent("ToB");
    EXPECT_EQ(Back(), C);
}

TEST_F(NavStateMachine, OfSeveralOverridesTheFirstCounts) {
    machine.AddBackOverride(C, A, A);
    machine.AddBackOverride(B, Y, A);
    machine.AddBackOverride(B, A, Z);
    machine.AddBackOverride(B, A, C);
    machine.HandleEvent("ToB");
    EXPECT_EQ(Back(), Z);
}

TEST_F(NavStateMachine, AnArrivalAtAnEndStateNeedsNoRow) {
    machine.SetTransition(A, kWFState_Done, "DoneButton");
    EXPECT_EQ(machine.HandleEvent("DoneButton"), kWFState_Done);
    EXPECT_THROW(machine.HandleEvent("DoneButton"), std::out_of_range);
}

class Tour : public testing::Test {
protected:
    void SetUp() override {
        machine.SetTransition(9, 3, "Continue");
        machine.SetTransition(3, kWFState_Exit, "CancelButton");
        machine.SetTransition(7, kWFState_BackUnset, kEventGoBack);
        machine.startState = 9;
        machine.SetDemoMode(true);
        machine.Run();
    }

    Machine machine;
};

TEST_F(Tour, VisitsTheStatesInAscendingOrderForEveryEvent) {
    EXPECT_EQ(machine.startState, 3);
    EXPECT_EQ(machine.CurrentState(), 3);
    EXPECT_EQ(machine.HandleEvent("CancelButton"), 7);
    EXPECT_EQ(machine.HandleEvent(kEventGoBack), 9);
    EXPECT_EQ(machine.HandleEvent("Unknown"), kWFState_Done);
}

TEST_F(Tour, CanHandleEveryEvent) {
    EXPECT_TRUE(machine.CanHandleEvent("Unknown"));
    EXPECT_TRUE(machine.CanHandleEvent(""));
}

TEST_F(Tour, RemovesItsLinks) {
    machine.HandleEvent("Continue");
    machine.SetDemoMode(false);
    EXPECT_EQ(machine.HandleEvent(kEventGoBack), kWFState_BackUnset);
}

TEST(NavStateMachineTour, ThrowsWithoutAState) {
    Machine machine;
    EXPECT_THROW(machine.SetDemoMode(true), std::out_of_range);
}

TEST(NavStateMachineTour, IsOffUntilAskedFor) {
    Machine machine;
    machine.SetTransition(3, 4, "Continue");
    machine.startState = 3;
    machine.SetDemoMode(false);
    machine.Run();
    EXPECT_FALSE(machine.CanHandleEvent("Unknown"));
    EXPECT_THAT(machine.ListStates(), ElementsAre(3));
}

} // namespace
} // namespace brixen::pvn::pvn_workflow
