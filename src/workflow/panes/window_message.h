// A message of a dialog's window, as the toolkit hands it to pane hosts, panes and alerts.
#pragma once

#include "toolkit/platform/native_types.h"

#include <cstdint>

namespace brixen::zeve {
class EventRecord;
}

namespace brixen::pvn::pvn_workflow {

struct WindowMessage {
    zeve::NativeWindow window = nullptr;
    std::uint32_t number = 0;
    std::uintptr_t wparam = 0;
    std::intptr_t lparam = 0;
};

// Returns the message that a record of zeve::kWhatMessage holds.
WindowMessage MessageOf(const zeve::EventRecord& record);

constexpr std::uint16_t LowWord(std::uintptr_t value) { return static_cast<std::uint16_t>(value & 0xFFFF); }
constexpr std::uint16_t HighWord(std::uintptr_t value) {
    return static_cast<std::uint16_t>(value >> 16 & 0xFFFF);
}

// What a control tells its dialog in wparam of WM_COMMAND.
struct Notification {
    std::uint16_t id = 0;   // of the control
    std::uint16_t code = 0; // kNotification... of workflow/platform/message_numbers.h
};

constexpr Notification NotificationOf(std::uintptr_t wparam) { return {LowWord(wparam), HighWord(wparam)}; }

// Our own message, posted to its dialog by a pane that must wait with something until it is on screen.
inline constexpr std::uint32_t kMessageFirstFocus = 0x0600;

} // namespace brixen::pvn::pvn_workflow
