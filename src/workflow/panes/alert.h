// Alerts: short modal questions on top of a pane, each a view description of its own.
#pragma once

#include "toolkit/platform/native_types.h"

#include <cstdint>
#include <span>
#include <string_view>

namespace brixen::zeve {
class EventRecord;
class ZeveDialog;
} // namespace brixen::zeve

namespace brixen::pvn::pvn_workflow {

class PVNWorkFlowContext;

// Quit the application? First button: quit. Second button: stay.
inline constexpr char kAlertQuit[] = "QuitAlert";

struct AlertEntry {
    std::string_view name;
    std::string_view view; // name of its view description
    bool isError;          // whether it shows the error picture
};

// A text variable of an alert's view.
struct AlertText {
    std::string_view name;
    std::string_view text; // or the key of one
};

// Returns the entry of an alert of the library. The entry of any other name is no error, and its view has the
// same name.
AlertEntry FindAlert(std::string_view name);

// The view ids of an alert's controls.
inline constexpr std::uint16_t kAlertFirstButton = 101;
inline constexpr std::uint16_t kAlertSecondButton = 102;
inline constexpr std::uint16_t kAlertPicture = 1001; // of an error alert

// Shows the alert of that name above `parent`, which may be null, and returns whether the user pressed the
// first button. The second button, Esc, the close box and the end of the run from outside are false. Kept: an
// alert that cannot be made counts as agreed, and is logged. `context` has the language and may be null.
//
// Throws what another window of the thread threw while the alert was open, where the toolkit has it thrown
// here: it is no answer of the user.
[[nodiscard]] bool ShowAlert(std::string_view name, zeve::NativeWindow parent, PVNWorkFlowContext* context);
// The same for an alert that is not one of the library's.
[[nodiscard]] bool ShowAlert(const AlertEntry& alert, zeve::NativeWindow parent, PVNWorkFlowContext* context,
                             std::span<const AlertText> texts = {});

// The callback parameter of an alert's dialog.
struct AlertParams {
    zeve::ZeveDialog* dialog = nullptr;
    std::uint16_t firstButton = kAlertFirstButton;
    std::uint16_t secondButton = kAlertSecondButton;
};

// The event callback of an alert's dialog; `params` is an AlertParams.
std::uint64_t AlertEventCallback(std::int32_t what, zeve::EventRecord& record, void* params);

} // namespace brixen::pvn::pvn_workflow
