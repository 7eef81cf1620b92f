// The pane after a call to the service that failed.
#pragma once

#include "workflow/catalogue/failure_words.h"
#include "workflow/catalogue/field_pane.h"
#include "workflow/controls/hyper_link.h"

#include <cstdint>

namespace brixen::pvn::pvn_workflow {

class PVNWorkFlowContext;

// What distinguishes the pages. View ids.
struct ProblemTraits {
    PageTraits page;
    std::uint16_t text;
    std::uint16_t errorCode;    // a locked field
    FailureWords denied;        // for a service that refuses
    const char* kept;           // the key of what is kept, and of the ways on
    std::uint16_t settingsLink; // FieldPane::kNoControl if the page has none
};

// What went wrong, and the code of it, which can be copied. The default button should send nothing.
class ProblemPane final : public FieldPane {
public:
    // The traits are borrowed.
    explicit ProblemPane(const ProblemTraits& problemTraits)
        : FieldPane(problemTraits.page), traits(problemTraits) {}

    void Enter() override;

private:
    const ProblemTraits& traits;
    HyperLink settingsLink;
};

// Returns the outcome of the run so far.
[[nodiscard]] Status ResultOf(PVNWorkFlowContext& context);

} // namespace brixen::pvn::pvn_workflow
