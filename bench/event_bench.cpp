// The time from an event to the new state: a workflow of twelve panes, walked to its end again and again,
// with the object that takes part in every change (the host, under the wildcard row) and the pane of each
// state. The peer keeps both tables as maps of maps and takes the same steps. The second pair has no
// properties, so that only the lookup of the transition and the change are left.
#include "workflow/machine/action_delegate.h"
#include "workflow/machine/state_machine.h"

#include <benchmark/benchmark.h>

#include <cstdint>
#include <functional>
#include <iterator>
#include <map>
#include <string>
#include <string_view>

namespace bench {
namespace {

using namespace brixen::pvn::pvn_workflow;

constexpr std::uint16_t kStates = 12;
constexpr std::string_view kEvents[] = {"ContinueToNextState", "GoBackToPreviousWorkFlowState",
                                        "UserWantsToQuitWorkFlow", "ServiceConnectionFailed",
                                        "ServiceConnectionSucceeded"};
// The walk takes a different event from one state to the next.
std::string_view EventFrom(std::uint16_t state) { return kEvents[state % std::size(kEvents)]; }

// The same machine, written in the most obvious way.
class MapMachine {
public:
    class Delegate {
    public:
        virtual ~Delegate() = default;
        virtual void Enter(MapMachine& machine, std::uint16_t state) = 0;
        virtual void Exit(MapMachine& machine, std::uint16_t state) = 0;
    };

    void SetTransition(std::uint16_t from, std::uint16_t to, std::string_view event) {
        transitions[static_cast<std::int16_t>(from)].insert_or_assign(std::string(event), to);
    }
    void SetProperty(std::uint16_t state, std::string_view key, void* value) {
        properties[static_cast<std::int16_t>(state)].emplace(key, value);
    }
    void EnterState(std::uint16_t state) { currentState = state; }

    std::uint16_t HandleEvent(std::string_view event) {
        const auto& row = transitions.at(static_cast<std::int16_t>(currentState));
        const auto found = row.find(event);
        if (found == row.end()) return currentState;
        const std::uint16_t target = found->second;
        if (Delegate* delegate = DelegateOf(currentState)) delegate->Exit(*this, currentState);
        if (Delegate* delegate = DelegateOf(target)) delegate->Enter(*this, target);
        return currentState = target;
    }

private:
    template <class Value>
    using Table = std::map<std::int16_t, std::map<std::string, Value, std::less<>>>;

    Delegate* DelegateOf(std::uint16_t state) const {
        for (const std::uint16_t sought : {state, kWFState_Any}) {
            const auto row = properties.find(static_cast<std::int16_t>(sought));
            if (row == properties.end()) continue;
            const auto found = row->second.find(kPropertyActionDelegate);
            if (found != row->second.end()) return static_cast<Delegate*>(found->second);
        }
        return nullptr;
    }

    std::uint16_t currentState = kWFState_None;
    Table<std::uint16_t> transitions;
    Table<void*> properties;
};

// Counts the calls, so that the compiler can omit none.
template <class Machine, class Base>
class Counting final : public Base {
public:
    std::int64_t entered = 0, exited = 0;
    void Enter(Machine&, std::uint16_t) override { ++entered; }
    void Exit(Machine&, std::uint16_t) override { ++exited; }
};

template <class Machine>
void SetTransitions(Machine& machine) {
    for (std::uint16_t state = 0; state < kStates; ++state) {
        for (const std::string_view event : kEvents) machine.SetTransition(state, kWFState_Exit, event);
        machine.SetTransition(state, static_cast<std::uint16_t>((state + 1) % kStates), EventFrom(state));
    }
    machine.EnterState(0);
}

template <class Machine, class Delegate>
void SetProperties(Machine& machine, Delegate* delegate) {
    machine.SetProperty(kWFState_Any, kPropertyActionDelegate, delegate);
    machine.SetProperty(kWFState_Any, kPropertyWorkflowContext, &machine);
    for (std::uint16_t state = 0; state < kStates; ++state)
        machine.SetProperty(state, kPropertyPaneObject, &machine);
}

template <class Machine>
void Walk(benchmark::State& state, Machine& machine) {
    // The texts of the events are not those of the table.
    std::string events[kStates];
    for (std::uint16_t place = 0; place < kStates; ++place) events[place] = EventFrom(place);
    std::uint16_t at = 0;
    for (auto _ : state) benchmark::DoNotOptimize(at = machine.HandleEvent(events[at]));
    if (at >= kStates) state.SkipWithError("left the walk");
    state.SetItemsProcessed(state.iterations());
}

template <class Machine, class Delegate>
void Event(benchmark::State& state) {
    Machine machine;
    Counting<Machine, Delegate> delegate;
    SetTransitions(machine);
    SetProperties(machine, static_cast<Delegate*>(&delegate));
    Walk(state, machine);
    if (delegate.entered < state.iterations() || delegate.exited < state.iterations())
        state.SkipWithError("the delegate was not called for a change");
}

template <class Machine>
void BareEvent(benchmark::State& state) {
    Machine machine;
    SetTransitions(machine);
    Walk(state, machine);
}

} // namespace

BENCHMARK(Event<PVNStateMachine, PVNActionDelegate>)->Name("event/pavane");
BENCHMARK(Event<MapMachine, MapMachine::Delegate>)->Name("event/map_of_maps");
BENCHMARK(BareEvent<PVNStateMachine>)->Name("event_bare/pavane");
BENCHMARK(BareEvent<MapMachine>)->Name("event_bare/map_of_maps");

} // namespace bench
