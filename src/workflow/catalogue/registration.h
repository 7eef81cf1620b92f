// Workflow 2, Registration: the user registers the product with the service.
#pragma once

#include "workflow/catalogue/registration_data.h"
#include "workflow/workflow.h"

namespace brixen::pvn::pvn_workflow {

// Introduction, Details, Registering, Registered; after a failure Problem, from which Back leads to Details.
// The connection settings are reached from Introduction and Problem. Later ends the run with
// kStatusUserOutcome3, Quit, after its alert, with kStatusUserQuit. Esc ends it with kStatusUserCancel, and
// on Problem with the status of the failure.
class PVNRegistrationWorkFlow final : public PVNWorkFlow {
public:
    using Context = RegistrationContext;
    using PVNWorkFlow::PVNWorkFlow;

    void Build(bool demo) override;

private:
    void SetTransitions();
    void SetPanes(bool demo);
};

} // namespace brixen::pvn::pvn_workflow
