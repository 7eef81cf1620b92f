#include "workflow/worker/operation_host.h"

#include "net/transport/call_limit.h"
#include "toolkit/message_numbers.h"
#include "toolkit/platform/toolkit_platform.h"
#include "workflow/context/context_keys.h"
#include "workflow/context/progress.h"
#include "workflow/panes/pane.h"
#include "workflow/worker/busy_pane.h"
#include "workflow/worker/operation_context.h"
#include "workflow/worker/worker_start.h"

#include <string>

namespace brixen::pvn::pvn_workflow {

bool OperationHost::ProcessWindowMessage(const WindowMessage& message, std::intptr_t& result) {
    switch (message.number) {
    case zeve::kMessageTimer: result = OnTimer(); return true;
    case kMessageStartWorker:
    case kMessageStartSecondWorker: OnWorkerStart(); return true;
    default: return PVNPaneHost::ProcessWindowMessage(message, result);
    }
}

// Any timer of the dialog will do, because the percent decides.
std::intptr_t OperationHost::OnTimer() {
    if (!window) return 0;
    if (gProgressPercent() == kPercentFinished) return TakeWorkersEnd();
    // The click has signaled once, but the worker may have begun its wait after another one took the signal.
    if (gProgressCancel && IsWorkerRunning()) CancelTransaction();
    return 0;
}

std::intptr_t OperationHost::TakeWorkersEnd() {
    zeve::platform::StopTimer(window, kProgressTimer);
    ClearProgressPercent();
    auto* const run = dynamic_cast<OperationContext*>(ActiveContext());
    const OperationTraits* const operation = run ? run->StartedOperation() : nullptr;
    const std::string event = operation ? run->Action(operation->name + std::string("AsyncDone")) : "";
    // The action may have ended the run.
    if (!window) return 0;
    if (operation && event == operation->successEvent) ShowFinished();
    return DeliverEvent(event);
}

void OperationHost::ShowFinished() {
    void* pane = nullptr;
    GetPtr(*context, PvnWFKey_CurrentPane, pane);
    if (auto* const busy = dynamic_cast<BusyPane*>(static_cast<PVNPane*>(pane))) busy->ShowFinished();
}

// A message that comes late, or twice, starts nothing.
void OperationHost::OnWorkerStart() {
    BusyPane* const pane = window ? CurrentBusyPane() : nullptr;
    if (!pane || !pane->TakeStart()) return;
    zeve::platform::Invalidate(window);
    context->Action(pane->Operation().name + std::string("Async"));
    // The start has cleared the flag of a click that came before it.
    if (pane->IsCanceling()) SetLong(*context, PvnWFKey_CancelFlag, 1);
}

std::intptr_t OperationHost::OnCancelOfBusyPane() {
    BusyPane* const pane = window ? CurrentBusyPane() : nullptr;
    if (!pane || !pane->OffersCancel()) return 0;
    pane->Cancel();
    return DeliverEvent("OKButton");
}

BusyPane* OperationHost::CurrentBusyPane() const { return dynamic_cast<BusyPane*>(CurrentPane()); }

} // namespace brixen::pvn::pvn_workflow
