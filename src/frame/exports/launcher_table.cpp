#include "frame/exports/launcher_table.h"

#include "frame/frame_state.h"
#include "toolkit/dialog/abandon_dialogs.h"
#include "workflow/catalogue/connection.h"
#include "workflow/catalogue/feedback.h"
#include "workflow/catalogue/privacy.h"
#include "workflow/catalogue/registration.h"
#include "workflow/catalogue/welcome.h"
#include "workflow/resources/resource_layer.h"
#include "workflow/run_workflow.h"
#include "workflow/worker/worker_start.h"

#include <algorithm>

namespace brixen::pvn {

using namespace pvn_workflow;

namespace {

// To add a workflow, add its class to workflow/catalogue and its run function here.
constexpr WorkflowRow kWorkflows[] = {
    {.name = "Welcome", .run = RunWorkFlowFromBag<PVNWelcomeWorkFlow>, .type = 1, .number = 1},
    {.name = "Registration",
     .run = RunWorkFlowFromBag<PVNRegistrationWorkFlow>,
     .preloadView = "registration",
     .type = 2,
     .number = 2,
     .showsHostName = true,
     .offersCancel = true,
     .keepsProxy = true},
    {.name = "Privacy", .run = RunWorkFlowFromBag<PVNPrivacyWorkFlow>, .type = 3, .number = 3},
    {.name = "Connection",
     .run = RunWorkFlowFromBag<PVNConnectionWorkFlow>,
     .type = 4,
     .number = 4,
     .showsHostName = true,
     .offersCancel = true,
     .keepsProxy = true},
    {.name = "Feedback",
     .run = RunWorkFlowFromBag<PVNFeedbackWorkFlow>,
     .type = 5,
     .number = 5,
     .showsHostName = true,
     .offersCancel = true,
     .keepsProxy = true},
};

void AbandonRunOfEngine() noexcept {
    zeve::AbandonDialogs();
    pvn_workflow::AbandonWorker();
}

} // namespace

constinit const LauncherTable kLauncherTable = {
    kWorkflows, SelectLanguage, LoadViewDescription, ShutDownResources, AbandonRunOfEngine,
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
