// The test of the connection to the service.
#pragma once

#include "workflow/worker/operation_context.h"

#include <span>

namespace brixen::pvn::pvn_workflow {

// Long: how long the answer of the service took, in milliseconds.
inline constexpr char PvnWFKey_ConnectionTime[] = "PvnWFKey_ConnectionTime";

// Sends the service a short message, and stores how long the answer took.
[[nodiscard]] Status TestConnection(T_StorageInterface& workerBag, const WorkerNotifier& notifier);

extern const OperationTraits kTestOperation;

class ConnectionContext final : public OperationContext {
public:
    using OperationContext::OperationContext;

    void FillWorkerBag(T_StorageInterface& workerValues) override;

protected:
    std::span<const OperationTraits> Operations() const override;
    void TakeResults(T_StorageInterface& workerValues) override;
};

} // namespace brixen::pvn::pvn_workflow
