// Radio buttons of a pane that belong together. Those of the toolkit are not automatic: the pane moves the
// mark, for a click, for Space and for the arrow keys, which only move the focus. So the host has two rows
// for each button, one of them for kNotificationButtonHasFocus.
#pragma once

#include <cstdint>
#include <span>

namespace brixen::zeve {
class ZeveDialog;
}

namespace brixen::pvn::pvn_workflow {

// The view ids of the buttons, in the order of the view, with nothing between them.
using RadioGroup = std::span<const std::uint16_t>;

// Lets the arrow keys move the focus within the group, and has each button report it. To be called by the
// Enter of a pane, before MarkRadioButton.
void JoinRadioButtons(zeve::ZeveDialog* dialog, RadioGroup group);

// Marks one button, the only one of the group that Tab reaches then.
void MarkRadioButton(zeve::ZeveDialog* dialog, RadioGroup group, std::uint16_t marked);

// Returns the marked button; 0 if none is.
[[nodiscard]] std::uint16_t MarkedRadioButton(zeve::ZeveDialog* dialog, RadioGroup group);

} // namespace brixen::pvn::pvn_workflow
