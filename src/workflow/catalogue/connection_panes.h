// The panes of Connection that show the result of the test.
#pragma once

#include "workflow/catalogue/field_pane.h"
#include "workflow/catalogue/problem_pane.h"
#include "workflow/worker/busy_pane.h"

namespace brixen::pvn::pvn_workflow::connection {

// The page of the settings has no default button, so that Enter never sends the test.
extern const PageTraits kSettingsTraits;
extern const PageTraits kTestingTraits; // of the busy pane
extern const BusyTraits kTestingBusy;
extern const ProblemTraits kUnreachedTraits;

// How long the answer took.
class ReachedPane final : public FieldPane {
public:
    ReachedPane();

    void Enter() override;
};

} // namespace brixen::pvn::pvn_workflow::connection
