// The five workflows, and where the engine's calls meet the exports.
#include "frame/exports/launchers.h"

#include "workflow/catalogue/privacy.h"
#include "workflow/catalogue/welcome.h"
#include "workflow/resources/resource_layer.h"
#include "workflow/run_workflow.h"

namespace brixen::pvn {

using namespace pvn_workflow;

namespace {

// A workflow joins the library by its class in workflow/catalogue and its run function here.
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

constinit const WorkflowCatalogue kWorkflowCatalogue = {
    kWorkflows,
    SelectLanguage,
    LoadViewDescription,
    ShutDownResources,
};

} // namespace brixen::pvn
