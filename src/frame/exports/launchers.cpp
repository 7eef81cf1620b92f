#include "frame/exports/launchers.h"

#include "frame/exports/host_configuration.h"
#include "frame/log.h"
#include "frame/pavane_context.h"
#include "frame/stop_watch.h"
#include "workflow/context/context_keys.h"

#include <algorithm>

namespace brixen::pvn {

using namespace pvn_workflow;

const WorkflowRow* WorkflowCatalogue::Find(std::uint16_t number) const noexcept {
    const auto row = std::ranges::find(workflows, number, &WorkflowRow::number);
    return row != workflows.end() && row->run ? &*row : nullptr;
}

namespace {

void LogFrame(const char* word, const WorkflowRow& workflow) noexcept {
    PvnLog("%s: %s: ----- %s %s Workflow -----\n", kLogComponent, kLogInfo, word, workflow.name);
}

void FillBag(T_StorageInterface& bag, const WorkflowRow& workflow, void* parentWindow) {
    const PavaneContext& context = *gPavaneContext;
    SetLong(bag, PvnWFKey_WorkFlow_Type, workflow.type);
    SetPtr(bag, PvnWFKey_MainWindow, parentWindow);
    SetLong(bag, PvnWFKey_HostApp, static_cast<std::uint32_t>(context.hostApp));
    SetString(bag, PvnWFKey_Language, GetHostLanguage(context.hostOptions));
    if (workflow.showsHostName) SetString(bag, PvnWFKey_ProductName, context.hostDisplayName);
    if (workflow.offersCancel)
        SetLong(bag, PvnWFKey_AllowCancel, context.hostOptions & kOptionWithholdCancel ? 0 : 1);
}

Status RunGuarded(const WorkflowRow& workflow, void* parentWindow) noexcept try {
    T_Storage bag;
    FillBag(bag, workflow, parentWindow);
    return workflow.run(bag);
} catch (...) {
    return kStatusException;
}

void LogUserDecision(Status status) noexcept {
    if (status == kStatusUserQuit) PvnLog("%s: %s: User chose to quit app\n", kLogComponent, kLogInfo);
    if (status == kStatusUserCancel)
        PvnLog("%s: %s: User chose to cancel workflow\n", kLogComponent, kLogInfo);
}

} // namespace

Status LaunchWorkflow(const WorkflowRow& workflow, void* parentWindow) noexcept {
    LogFrame("Start", workflow);
    LogStopWatchReset(kLauncherStarts);
    SetWorkflowPhase(kPhaseIdle);
    const Status status = RunGuarded(workflow, parentWindow);
    if (IsUserDecision(status)) LogUserDecision(status);
    LogFrame("End", workflow);
    return status;
}

} // namespace brixen::pvn
