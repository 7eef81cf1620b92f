// A pane that is a page of the view, with its buttons in the row below it.
#pragma once

#include "workflow/panes/pane.h"

#include <cstdint>
#include <span>

namespace brixen::pvn::pvn_workflow {

inline constexpr std::uint16_t kNoButton = 0;

// What distinguishes the pages of a workflow.
struct PageTraits {
    const char* titleKey;                   // of the window's title
    std::uint16_t page;                     // the view id of its group
    std::span<const std::uint16_t> buttons; // in the order of the row
    std::uint16_t defaultButton;            // one of them, pressed by Enter; or kNoButton
};

class PagePane : public PVNPane {
public:
    // The traits are borrowed.
    explicit PagePane(const PageTraits& pageTraits) : traits(pageTraits) {}

    void Enter() override;
    void Leave() override;

    // Returns a view id, or kNoButton.
    std::uint16_t DefaultButton() const { return traits.defaultButton; }

private:
    const PageTraits& traits;
};

} // namespace brixen::pvn::pvn_workflow
