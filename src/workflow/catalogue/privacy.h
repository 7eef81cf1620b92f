// Workflow 3, Privacy: the privacy statement in a language that the user chooses, to be accepted or declined.
#pragma once

#include "workflow/workflow.h"

#include <memory>

namespace brixen::pvn::pvn_workflow {

struct PrivacyData;

// Choose, then Statement. Accept ends it as done, Decline with kStatusUserOutcome3, Cancel, on each pane,
// with kStatusUserCancel. A statement that is not there, and an empty language list, have panes of their own
// that say so.
class PVNPrivacyWorkFlow final : public PVNWorkFlow {
public:
    explicit PVNPrivacyWorkFlow(PVNWorkFlowContext& context);
    ~PVNPrivacyWorkFlow() override;

    void Build(bool demo) override;

private:
    void SetTransitions();
    void SetPanes();

    std::unique_ptr<PrivacyData> data; // what the panes share
};

} // namespace brixen::pvn::pvn_workflow
