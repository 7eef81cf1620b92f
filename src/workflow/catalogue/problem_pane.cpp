#include "workflow/catalogue/problem_pane.h"

#include "workflow/context/context_keys.h"
#include "workflow/context/workflow_context.h"
#include "workflow/panes/pane_helpers.h"

namespace brixen::pvn::pvn_workflow {

Status ResultOf(PVNWorkFlowContext& context) {
    std::uint32_t result = 0;
    GetLong(context, PvnWFKey_WorkFlowResult, result);
    return static_cast<Status>(result);
}

void ProblemPane::Enter() {
    if (traits.settingsLink != kNoControl) AttachLink(settingsLink, traits.settingsLink);
    SetControlText(ref, traits.text, TextOfFailure(ResultOf(*context), traits.denied, traits.kept));
    SetControlText(ref, traits.errorCode, context->Action(PvnWF_GetFormattedWorkflowResult));
    FieldPane::Enter();
}

} // namespace brixen::pvn::pvn_workflow
