// Short modal boxes on top of a pane.
#pragma once

#include "toolkit/platform/native_types.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace brixen::zeve {
class EventRecord;
class ZeveDialog;
} // namespace brixen::zeve

namespace brixen::pvn::pvn_workflow {

class PVNWorkFlowContext;
struct AlertEntry;

// The view ids that an alert's view description gives its controls.
inline constexpr std::uint16_t kAlertFirstButton = 101;
inline constexpr std::uint16_t kAlertSecondButton = 102;
inline constexpr std::uint16_t kAlertPicture = 1001; // of an error alert

// Shows the alert of that name (see alert_catalogue.h) and returns true when the user took the first button.
// The second button, Esc and the close box are false. An alert that cannot be shown counts as agreed, and
// leaves a log line. `context` gives the language and may be null.
//
// When a dialog below is ended while the alert is open, the alert answers as by its second button.
bool ShowAlert(std::string_view name, zeve::NativeWindow parent, PVNWorkFlowContext* context);
// The same for an alert that need not stand in the catalogue.
bool ShowAlert(const AlertEntry& alert, zeve::NativeWindow parent, PVNWorkFlowContext* context);

// What an alert's dialog hands to AlertEventCallback.
struct AlertParams {
    zeve::ZeveDialog* dialog = nullptr;
    std::uint16_t firstButton = kAlertFirstButton;
    std::uint16_t secondButton = kAlertSecondButton;
};

std::uint64_t AlertEventCallback(std::int32_t what, zeve::EventRecord& record, void* params);

} // namespace brixen::pvn::pvn_workflow
