// The row of a busy state in the table of a workflow.
#pragma once

#include "workflow/worker/operation.h"

#include <cstdint>

namespace brixen::pvn::pvn_workflow {

class PVNStateMachine;

// The states to which the row of a busy state leads.
struct BusyRow {
    std::uint16_t busy;    // the state of the row
    std::uint16_t success; // after the success event
    std::uint16_t cancel;  // the pane before the busy one
    std::uint16_t failure;
};

// Sets a transition on every event after the operation.
void SetBusyRow(PVNStateMachine& machine, const OperationTraits& operation, const BusyRow& row);

} // namespace brixen::pvn::pvn_workflow
