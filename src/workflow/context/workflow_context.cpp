#include "workflow/context/workflow_context.h"

#include "dictionaries/translation.h"
#include "net/transport/call_limit.h"
#include "services/base_services.h"
#include "workflow/context/context_keys.h"
#include "workflow/context/progress.h"

namespace brixen::pvn::pvn_workflow {

PVNWorkFlowContext::PVNWorkFlowContext(T_StorageInterface& bag)
    : PVNContextStorage(bag), progressTimer(std::make_unique<PVNProgressTimer>()) {
    SetPtr(bag, PvnWFKey_ProgressNotifierProc, reinterpret_cast<const void*>(&ProgressNotifier));
}

bool PVNWorkFlowContext::Set(std::string_view key, std::string_view typeName, const void* value) {
    if (typeName == kValueTypeLong && key == PvnWFKey_CancelFlag) {
        gProgressCancel = *static_cast<const std::uint32_t*>(value) == 1;
        if (gProgressCancel) CancelTransaction();
        return true;
    }
    // The key is write only: a value of another type has no effect, and never reaches the bag either.
    if (key == PvnWFKey_CancelFlag) return true;
    if (InterceptValue(key, typeName, value)) return true;
    return PVNContextStorage::Set(key, typeName, value);
}

bool PVNWorkFlowContext::Get(std::string_view key, std::string_view typeName, void* out) {
    if (PVNContextStorage::Get(key, typeName, out)) return true;
    return ComputeValue(key, typeName) && PVNContextStorage::Get(key, typeName, out);
}

bool PVNWorkFlowContext::InterceptValue(std::string_view, std::string_view, const void*) { return false; }
bool PVNWorkFlowContext::ComputeValue(std::string_view, std::string_view) { return false; }
bool PVNWorkFlowContext::RunAction(std::string_view, std::string&) { return false; }

std::string PVNWorkFlowContext::Action(std::string_view name) {
    if (name == PvnWFAction_GetSVHPath) return GetServicePath();
    if (name == PvnWF_GetFormattedWorkflowResult) return GetFormattedWorkflowResult();
    std::string result;
    return RunAction(name, result) ? result : std::string();
}

std::string PVNWorkFlowContext::GetServicePath() { return BaseServicesFolder(); }

std::string PVNWorkFlowContext::GetFormattedWorkflowResult() {
    std::uint32_t code = 0;
    GetLong(*this, PvnWFKey_WorkFlowResult, code);
    const std::string bytes = std::to_string(code >> 8 & 0xFF) + ":" + std::to_string(code & 0xFF);
    return zeve::ZeveTranslate("$$$/pvn/error/error_code_msg_mask", 0, bytes);
}

} // namespace brixen::pvn::pvn_workflow
