#include "frame/exports/preparing.h"

#include "frame/exception_boundary.h"
#include "frame/exports/host_configuration.h"
#include "frame/frame_state.h"
#include "frame/pavane_context.h"

namespace brixen::pvn {
namespace {

Status LoadWhatTheRowNames(const RequestedWorkflow& workflow) {
    const LauncherTable& launchers = GetLaunchers();
    launchers.selectLanguage(workflow.language);
    if (!workflow.row) return kStatusBadArgument;
    if (workflow.row->preloadView) launchers.loadViewDescription(workflow.row->preloadView);
    if (workflow.row->showsHostName) RefreshHostStrings(*GetFrameState().gPavaneContext, workflow.language);
    return kStatusSuccess;
}

} // namespace

bool IsPrepared(std::uint16_t number) noexcept { return number == GetFrameState().gPreloadedWorkflow; }

Status LookUp(RequestedWorkflow& workflow) noexcept {
    return StatusAtBoundary([&] {
        workflow.row = GetLaunchers().Find(workflow.number);
        workflow.language = GetHostLanguage(GetFrameState().gPavaneContext->hostOptions);
        return kStatusSuccess;
    });
}

Status Prepare(RequestedWorkflow& workflow) noexcept {
    Status status = LookUp(workflow);
    if (status == kStatusSuccess) status = StatusAtBoundary([&] { return LoadWhatTheRowNames(workflow); });
    GetFrameState().gPreloadedWorkflow = workflow.number;
    return status;
}

} // namespace brixen::pvn
