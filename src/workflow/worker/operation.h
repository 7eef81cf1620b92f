// Operations: long steps of a workflow that run on a worker thread while a busy pane is shown.
#pragma once

#include "frame/status.h"
#include "values/storage.h"
#include "workflow/context/worker_notifier.h"

namespace brixen::pvn::pvn_workflow {

// Does the work and returns its status, 0 for success. Runs on the worker's thread and may block. It uses
// only the bag and the notifier. It may throw: std::bad_alloc becomes kStatusNoMemory, and any other
// exception becomes kStatusException. It need not ask the notifier first.
using WorkerEntryOfBag = Status (*)(T_StorageInterface& workerBag, const WorkerNotifier& notifier);

// An operation of a workflow. Its context has three actions for it, "<name>Async", "<name>AsyncDone" and
// "<name>".
struct OperationTraits {
    const char* name; // such as "PvnWF_Register"
    WorkerEntryOfBag entry;
    const char* successEvent;     // for the state machine
    bool evaluatesAtOnce = false; // the synchronous form returns the event instead of "InProgress"
};

// Returned by the actions that start an operation.
inline constexpr char kActionInProgress[] = "InProgress";

// The events after a worker, besides the success event. The row of a busy state has a transition on each of
// them, or the dialog hangs.
inline constexpr char kEventCanceledByUser[] = "CancelButton";
inline constexpr char kEventNoConnection[] = "NoInternetConnection";
inline constexpr char kEventServerUnavailable[] = "ServerUnavailable";
inline constexpr char kEventTransactionDenied[] = "TransactionDenied";

} // namespace brixen::pvn::pvn_workflow
