// What the panes of the shipped workflows have in common: a page of the view, and the buttons of the row
// below it that belong to the page.
#pragma once

#include "workflow/panes/pane.h"

#include <span>

namespace brixen::pvn::pvn_workflow {

// What distinguishes the pages of a workflow.
struct PageTraits {
    const char* titleKey;                   // of the window's title
    std::uint16_t page;                     // the view id of its group
    std::span<const std::uint16_t> buttons; // in the order of the row
    std::uint16_t defaultButton;            // one of them: what Enter presses
};

class PagePane : public PVNPane {
public:
    explicit PagePane(const PageTraits& pageTraits) : traits(pageTraits) {}

    void Enter() override;
    void Leave() override;

    std::uint16_t DefaultButton() const { return traits.defaultButton; }

private:
    const PageTraits& traits;
};

} // namespace brixen::pvn::pvn_workflow
