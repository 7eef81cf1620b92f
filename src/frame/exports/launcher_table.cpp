#include "frame/exports/launcher_table.h"

#include "frame/frame_state.h"
#include "workflow/catalogue/privacy.h"
#include "workflow/catalogue/welcome.h"
#include "workflow/resources/resource_layer.h"
#include "workflow/run_workflow.h"

#include <algorithm>

namespace brixen::pvn {

using namespace pvn_workflow;

namespace {

// To add a workflow, add its class to workflow/catalogue and its run function here.
constexpr WorkflowRow kWorkflows[] = {
    {.number = 1, .type = 1, .name = "Welcome", .run = RunWorkFlowFromBag<PVNWelcomeWorkFlow>},
    {.number = 2,
     .type = 2,
     .name = "Registration",
     .run = nullptr,
     .showsHostName = true,
     .offersCancel = true,
     .preloadView = "registration"},
    {.number = 3, .type = 3, .name = "Privacy", .run = RunWorkFlowFromBag<PVNPrivacyWorkFlow>},
    {.number = 4,
     .type = 4,
     .name = "Connection",
     .run = nullptr,
     .showsHostName = true,
     .offersCancel = true},
    {.number = 5, .type = 5, .name = "Feedback", .run = nullptr, .showsHostName = true, .offersCancel = true},
};

} // namespace

constinit const LauncherTable kLauncherTable = {
    kWorkflows,
    SelectLanguage,
    LoadViewDescription,
    ShutDownResources,
};

const LauncherTable& GetLaunchers() noexcept {
    const LauncherTable* const table = GetFrameState().testLaunchers;
    return table ? *table : kLauncherTable;
}

const WorkflowRow* LauncherTable::Find(std::uint16_t number) const noexcept {
    const auto row = std::ranges::find(workflows, number, &WorkflowRow::number);
    return row != workflows.end() && row->run ? &*row : nullptr;
}

} // namespace brixen::pvn
