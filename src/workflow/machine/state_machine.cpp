#include "workflow/machine/state_machine.h"

#include "workflow/machine/action_delegate.h"

#include <stdexcept>

namespace brixen::pvn::pvn_workflow {

namespace {

PVNActionDelegate* DelegateOf(const PVNStateMachine& machine, std::uint16_t state) {
    void* delegate = nullptr;
    machine.GetProperty(state, kPropertyActionDelegate, delegate);
    return static_cast<PVNActionDelegate*>(delegate);
}

} // namespace

void PVNStateMachine::SetTransition(std::uint16_t from, std::uint16_t to, std::string_view event) {
    transitions.At(from).Assign(event, to);
}

bool PVNStateMachine::SetProperty(std::uint16_t state, std::string_view key, void* value) {
    return properties.At(Resolve(state)).Insert(key, value);
}

bool PVNStateMachine::GetProperty(std::uint16_t state, std::string_view key, void*& value) const {
    const auto* row = properties.Find(Resolve(state));
    const auto* found = row ? row->Find(key) : nullptr;
    if (!found) {
        row = properties.Find(kWFState_Any);
        found = row ? row->Find(key) : nullptr;
    }
    if (found) value = *found;
    return found;
}

void* PVNStateMachine::RemoveProperty(std::uint16_t state, std::string_view key) noexcept {
    auto* row = properties.Find(Resolve(state));
    const auto* found = row ? row->Find(key) : nullptr;
    if (!found) return nullptr;
    void* value = *found;
    row->Erase(key);
    return value;
}

void PVNStateMachine::EnterState(std::uint16_t state) {
    currentState = state;
    if (auto* delegate = DelegateOf(*this, state)) delegate->Enter(*this, state);
}

bool PVNStateMachine::CanHandleEvent(std::string_view event) const {
    const auto* row = transitions.Find(currentState);
    return row && row->Find(event);
}

std::uint16_t PVNStateMachine::HandleEvent(std::string_view event) {
    const auto* row = transitions.Find(currentState);
    if (!row) throw std::out_of_range("the current state has no transitions");
    const auto* found = row->Find(event);
    if (!found) return currentState;
    const std::uint16_t target = *found;
    OnStateChange(currentState, target);
    currentState = target;
    return currentState;
}

void PVNStateMachine::OnStateChange(std::uint16_t from, std::uint16_t to) {
    if (auto* delegate = DelegateOf(*this, from)) delegate->Exit(*this, from);
    if (auto* delegate = DelegateOf(*this, to)) delegate->Enter(*this, to);
}

} // namespace brixen::pvn::pvn_workflow
