// Workflow 3, Privacy: the user chooses a language, reads the privacy statement, and accepts or declines it.
#pragma once

#include "workflow/workflow.h"

#include <memory>

namespace brixen::pvn::pvn_workflow {

struct PrivacyData;

// Choose, then Statement. Accept ends the run as done, Decline with kStatusUserOutcome3, Cancel, on each
// pane, with kStatusUserCancel. A missing statement and an empty language list have panes of their own.
class PVNPrivacyWorkFlow final : public PVNWorkFlow {
public:
    explicit PVNPrivacyWorkFlow(PVNWorkFlowContext& context);
    ~PVNPrivacyWorkFlow() override;

    void Build(bool demo) override;

private:
    void SetTransitions();
    void SetPanes();

    std::unique_ptr<PrivacyData> data; // shared by the panes
};

} // namespace brixen::pvn::pvn_workflow
