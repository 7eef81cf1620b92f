// The context of a workflow that has operations: it starts workers and turns their statuses into events.
#pragma once

#include "workflow/context/workflow_context.h"
#include "workflow/worker/operation.h"

#include <span>
#include <string>
#include <string_view>

namespace brixen::pvn::pvn_workflow {

class OperationContext : public PVNWorkFlowContext {
public:
    using PVNWorkFlowContext::PVNWorkFlowContext;
    // Tells every worker of this run that still works to stop. What it reports from now on is dropped.
    ~OperationContext() override;

    // The operation that was started last; null before the first one.
    const OperationTraits* StartedOperation() const { return started; }

    // Returns the event of a failure that is no cancel. By default a status that is no reply of the service
    // gives kEventNoConnection; kStatusServiceDenied gives kEventTransactionDenied, and the other replies
    // give kEventServerUnavailable.
    virtual std::string ResultToEvent(Status status);

    // Puts what the worker needs beyond the settings of the proxy into its bag. By default this is the
    // address of the service; an override calls this one first.
    virtual void FillWorkerBag(T_StorageInterface& workerValues);

protected:
    // The table of operations. It must outlive the context.
    virtual std::span<const OperationTraits> Operations() const = 0;
    // Takes the results of a success out of the bag. An answer that lacks something is no success: the entry
    // has returned a status for it.
    virtual void TakeResults(T_StorageInterface&) {}

    // Runs the actions of the operations. An override for further actions calls this one for all others.
    bool RunAction(std::string_view name, std::string& result) override;

private:
    // Returns whether there is a bag for a worker; without memory it reports the end.
    bool MakeWorkerBag(WorkerRun run, WorkerCallback notifier);
    std::string StartAsync(const OperationTraits& operation);
    std::string RunAtOnce(const OperationTraits& operation);
    std::string Evaluate(const OperationTraits& operation);
    std::string EventOfEnd(const OperationTraits& operation);
    WorkerCallback Notifier();
    void StartTimer();

    const OperationTraits* started = nullptr;
};

// Replaces the context's worker bag by a new one, with copies of the settings of the proxy. A key that is
// absent stays absent. Returns the new bag.
WorkerBag& BuildWorkerBag(PVNWorkFlowContext& context);

} // namespace brixen::pvn::pvn_workflow
