#include "workflow/catalogue/connection_data.h"

#include "frame/platform/frame_platform.h"
#include "workflow/context/context_keys.h"
#include "workflow/service/payload.h"
#include "workflow/service/service_call.h"

namespace brixen::pvn::pvn_workflow {

constexpr OperationTraits kTestOperation{"PvnWF_TestConnection", &TestConnection, "ConnectionReached"};

Status TestConnection(T_StorageInterface& workerBag, const WorkerNotifier& notifier) {
    std::string locale;
    GetString(workerBag, PvnWFKey_PageLocale, locale);
    PayloadWriter payload("connectionTest");
    payload.Add("locale", locale);
    std::string answer;
    const std::uint32_t start = TickCount();
    const Status status = CallService(workerBag, "testConnection", payload.Text(), answer, notifier);
    if (status != kStatusSuccess) return status;
    if (!IsPayload(answer, "reached")) return RefuseAnswer(answer);
    SetLong(workerBag, PvnWFKey_ConnectionTime, TickCount() - start);
    return kStatusSuccess;
}

void ConnectionContext::FillWorkerBag(T_StorageInterface& workerValues) {
    OperationContext::FillWorkerBag(workerValues);
    CopyString(*this, workerValues, PvnWFKey_PageLocale);
}

std::span<const OperationTraits> ConnectionContext::Operations() const { return {&kTestOperation, 1}; }

void ConnectionContext::TakeResults(T_StorageInterface& workerValues) {
    CopyLong(workerValues, *this, PvnWFKey_ConnectionTime);
}

} // namespace brixen::pvn::pvn_workflow
