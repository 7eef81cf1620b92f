#include "workflow/worker/busy_row.h"

#include "workflow/machine/state_machine.h"

namespace brixen::pvn::pvn_workflow {

void SetBusyRow(PVNStateMachine& machine, const OperationTraits& operation, const BusyRow& row) {
    machine.SetTransition(row.busy, row.success, operation.successEvent);
    machine.SetTransition(row.busy, row.cancel, kEventCanceledByUser);
    for (const char* failure : {kEventNoConnection, kEventServerUnavailable, kEventTransactionDenied}) {
        machine.SetTransition(row.busy, row.failure, failure);
    }
}

} // namespace brixen::pvn::pvn_workflow
