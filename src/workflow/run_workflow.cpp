#include "workflow/run_workflow.h"

#include "frame/exception_boundary.h"
#include "frame/status.h"
#include "services/base_services.h"
#include "toolkit/dialog/dpi_unaware_scope.h"
#include "workflow/context/context_keys.h"
#include "workflow/context/workflow_context.h"
#include "workflow/resources/resource_layer.h"
#include "workflow/workflow.h"

#include <string>

namespace brixen::pvn::pvn_workflow {

namespace {

std::uint16_t StoredResult(PVNWorkFlowContext& context) {
    // As at the start of the run, if the run has removed the key.
    std::uint32_t result = kStatusUserCancel;
    GetLong(context, PvnWFKey_WorkFlowResult, result);
    return static_cast<std::uint16_t>(result);
}

std::uint16_t RunInside(T_StorageInterface& bag, const WorkFlowMaker& maker) {
    std::string language;
    GetString(bag, PvnWFKey_Language, language);
    SelectLanguage(language);
    ResolveBaseServices(); // on the host's thread, and before a worker needs one
    const auto context = maker.makeContext(bag);
    // The result until the run sets another one.
    SetLong(*context, PvnWFKey_WorkFlowResult, kStatusUserCancel);
    const zeve::DpiUnawareScope scope; // before anything is measured, and until Cleanup
    const auto workFlow = maker.makeWorkFlow(*context);
    const std::uint16_t status = workFlow->Run(false) ? kStatusSuccess : StoredResult(*context);
    ShutDownResources();
    return status;
}

} // namespace

std::uint16_t MakeAndRunWorkFlow(T_StorageInterface& bag, const WorkFlowMaker& maker) noexcept {
    return StatusAtBoundary([&] { return RunInside(bag, maker); });
}

} // namespace brixen::pvn::pvn_workflow
