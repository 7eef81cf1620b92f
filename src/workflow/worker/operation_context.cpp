#include "workflow/worker/operation_context.h"

#include "dictionaries/translation.h"
#include "net/transport/call_limit.h"
#include "net/transport/communication_detail.h"
#include "values/wipe.h"
#include "workflow/context/context_keys.h"
#include "workflow/context/progress.h"
#include "workflow/worker/worker_start.h"

#include <new>
#include <stdexcept>

namespace brixen::pvn::pvn_workflow {

namespace {

constexpr char kServiceUrlKey[] = "$$$/pvn/service/url";
constexpr std::string_view kAsync = "Async";
constexpr std::string_view kAsyncDone = "AsyncDone";

void CopyProxySettings(T_StorageInterface& from, T_StorageInterface& to) {
    CopyString(from, to, PvnWFKey_ProxyHost);
    CopyLong(from, to, PvnWFKey_ProxyPort);
    CopyString(from, to, PvnWFKey_ProxyUserName);
    CopySecret(from, to, PvnWFKey_ProxyPassword);
}

} // namespace

WorkerBag& BuildWorkerBag(PVNWorkFlowContext& context) {
    context.workerBag.reset(); // its values must not come back if there is no memory for the new one
    context.workerBag = std::make_shared<WorkerBag>();
    WorkerBag& bag = *context.workerBag;
    CopyLong(context, bag.values, PvnWFKey_UseUserProxySetting);
    CopyProxySettings(context, bag.values);
    return bag;
}

// The worker that still works may be that of an earlier operation, for which the latest start was refused.
OperationContext::~OperationContext() {
    if (!started) return;
    EndWorkerRun();
    if (IsWorkerRunning()) CancelTransaction();
}

std::string OperationContext::ResultToEvent(Status status) {
    if (!IsServiceReply(status)) return kEventNoConnection;
    return status == kStatusServiceDenied ? kEventTransactionDenied : kEventServerUnavailable;
}

void OperationContext::FillWorkerBag(T_StorageInterface& workerValues) {
    SetString(workerValues, PvnWFKey_ServiceUrl, zeve::ZeveTranslate(kServiceUrlKey));
}

bool OperationContext::RunAction(std::string_view name, std::string& result) {
    for (const OperationTraits& operation : Operations()) {
        if (!name.starts_with(operation.name)) continue;
        const std::string_view form = name.substr(std::string_view(operation.name).size());
        if (form == kAsync) return result = StartAsync(operation), true;
        if (form == kAsyncDone) return result = Evaluate(operation), true;
        if (form.empty()) return result = RunAtOnce(operation), true;
    }
    return false;
}

// Missing memory is the end of the work, as it is in the worker.
bool OperationContext::MakeWorkerBag(WorkerRun run, WorkerCallback notifier) try {
    FillWorkerBag(BuildWorkerBag(*this).values);
    return true;
} catch (const std::bad_alloc&) {
    NotifyOfRun(run, notifier, kPercentFinished, kStatusNoMemory);
    return false;
}

std::string OperationContext::StartAsync(const OperationTraits& operation) {
    started = &operation;
    const WorkerRun run = BeginWorkerRun();
    const WorkerCallback notifier = Notifier();
    if (MakeWorkerBag(run, notifier)) StartWorker({operation.entry, workerBag, run}, notifier);
    StartTimer();
    return kActionInProgress;
}

// The dialog is deaf until the work has ended.
std::string OperationContext::RunAtOnce(const OperationTraits& operation) {
    started = &operation;
    const WorkerRun run = BeginWorkerRun();
    if (!operation.evaluatesAtOnce) StartTimer();
    const WorkerCallback notifier = Notifier();
    if (MakeWorkerBag(run, notifier)) RunWorkerHere({operation.entry, workerBag, run}, notifier);
    if (!operation.evaluatesAtOnce) return kActionInProgress;
    ClearProgressPercent();
    return Evaluate(operation);
}

std::string OperationContext::Evaluate(const OperationTraits& operation) {
    std::string event = EventOfEnd(operation);
    // The bag stays until the next start, and the user may stay on a pane for long.
    if (workerBag) RemoveSecret(workerBag->values, PvnWFKey_ProxyPassword);
    return event;
}

std::string OperationContext::EventOfEnd(const OperationTraits& operation) {
    const Status status = gProgressStatus();
    SetLong(*this, PvnWFKey_WorkFlowResult, status);
    if (status == kStatusSuccess) {
        if (workerBag) TakeResults(workerBag->values);
        return operation.successEvent;
    }
    if (gProgressCancel) return kEventCanceledByUser;
    std::string event = ResultToEvent(status);
    if (workerBag) CopyProxySettings(workerBag->values, *this);
    SetLong(*this, PvnWFKey_UseUserProxySetting, 1);
    return event;
}

WorkerCallback OperationContext::Notifier() {
    void* notifier = nullptr;
    GetPtr(*this, PvnWFKey_ProgressNotifierProc, notifier);
    return notifier ? reinterpret_cast<WorkerCallback>(notifier) : &ProgressNotifier;
}

// Without its timer the dialog would never learn of the end.
void OperationContext::StartTimer() {
    void* dialog = nullptr;
    GetPtr(*this, PvnWFKey_ZeveRef, dialog);
    if (!ProgressTimer().Start(static_cast<zeve::ZeveDialog*>(dialog))) {
        throw std::runtime_error("no timer for the poll of a worker");
    }
}

} // namespace brixen::pvn::pvn_workflow
