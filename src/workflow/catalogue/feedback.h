// Workflow 5, Feedback: the user tells the makers of the product about a picture.
#pragma once

#include "workflow/catalogue/feedback_data.h"
#include "workflow/workflow.h"

namespace brixen::pvn::pvn_workflow {

// Picture, Capture, Storage, Sending, Received; after a failure Problem, from which Back leads to Storage.
// The connection settings are reached from Problem. Cancel ends the run with kStatusUserCancel, and so does
// Esc; on Problem Esc ends it with the status of the failure.
class PVNFeedbackWorkFlow final : public PVNWorkFlow {
public:
    using Context = FeedbackContext;
    using PVNWorkFlow::PVNWorkFlow;

    void Build(bool demo) override;

private:
    void SetTransitions();
    void SetPanes(bool demo);
};

} // namespace brixen::pvn::pvn_workflow
