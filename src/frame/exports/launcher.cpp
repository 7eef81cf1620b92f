#include "frame/exports/launcher.h"

#include "frame/exception_boundary.h"
#include "frame/exports/host_configuration.h"
#include "frame/exports/kept_proxy.h"
#include "frame/frame_state.h"
#include "frame/log.h"
#include "frame/pavane_context.h"
#include "frame/stop_watch.h"
#include "values/scope_guard.h"
#include "workflow/context/context_keys.h"

namespace brixen::pvn {

using namespace pvn_workflow;

namespace {

void LogFrame(const char* word, const WorkflowRow& workflow) noexcept {
    PvnLog("%s: %s: ----- %s %s Workflow -----\n", kLogComponent, kLogInfo, word, workflow.name);
}

void FillBag(T_StorageInterface& bag, const WorkflowRow& workflow, const std::string& language,
             void* parentWindow) {
    const PavaneContext& context = *GetFrameState().gPavaneContext;
    SetLong(bag, PvnWFKey_WorkFlow_Type, workflow.type);
    SetPtr(bag, PvnWFKey_MainWindow, parentWindow);
    SetLong(bag, PvnWFKey_HostApp, static_cast<std::uint32_t>(context.hostApp));
    SetString(bag, PvnWFKey_Language, language);
    if (workflow.showsHostName) SetString(bag, PvnWFKey_ProductName, context.hostDisplayName);
    if (workflow.offersCancel) {
        const bool isWithheld = context.hostOptions & kOptionWithholdCancel;
        SetLong(bag, PvnWFKey_AllowCancel, isWithheld ? 0 : 1);
    }
    if (workflow.keepsProxy) PutKeptProxy(bag);
}

void LogUserDecision(Status status) noexcept {
    if (status == kStatusUserQuit) PvnLog("%s: %s: User chose to quit app\n", kLogComponent, kLogInfo);
    if (status == kStatusUserCancel)
        PvnLog("%s: %s: User chose to cancel workflow\n", kLogComponent, kLogInfo);
}

} // namespace

Status LaunchWorkflow(const WorkflowRow& workflow, const std::string& language, void* parentWindow) noexcept {
    LogFrame("Start", workflow);
    LogStopWatchReset(kLauncherStarts);
    SetWorkflowPhase(kPhaseIdle);
    const Status status = StatusAtBoundary([&] {
        T_Storage bag;
        FillBag(bag, workflow, language, parentWindow);
        const ScopeGuard keep([&]() noexcept {
            if (workflow.keepsProxy) KeepProxyOf(bag);
        });
        return workflow.run(bag);
    });
    LogUserDecision(status);
    LogFrame("End", workflow);
    return status;
}

} // namespace brixen::pvn
