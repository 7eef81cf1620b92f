// The window messages that a pane host knows besides those of toolkit/window_messages.h.
#pragma once

#include <cstdint>

namespace brixen::pvn::pvn_workflow {

// Posted by a pane that must wait with something until it is on screen.
inline constexpr std::uint32_t kMessageFirstFocus = 0x0600;

// What the user's hands cause, as the system numbers it.
inline constexpr std::uint32_t kMessageFrameButtonDown = 0x00A1; // the left button on the window's frame
inline constexpr std::uint32_t kMessageLeftButtonDown = 0x0201;
inline constexpr std::uint32_t kMessageRightButtonDown = 0x0204;
inline constexpr std::uint32_t kMessageMiddleButtonDown = 0x0207;
inline constexpr std::uint32_t kMessageParentNotify = 0x0210; // low word: what happened in a child

// What a WM_COMMAND tells in the high word of wparam.
inline constexpr std::uint16_t kNotificationPressed = 0; // a button, or a key that stands for one
inline constexpr std::uint16_t kNotificationKey = 1;     // a keyboard shortcut
inline constexpr std::uint16_t kNotificationPopupHasFocus = 3;
inline constexpr std::uint16_t kNotificationEditHasFocus = 0x0100;
inline constexpr std::uint16_t kNotificationEditLosesFocus = 0x0200;

// What the system's keyboard rules send for Enter and Esc.
inline constexpr std::uint16_t kIdEnter = 1;
inline constexpr std::uint16_t kIdEscape = 2;

constexpr std::uint16_t LowWord(std::uintptr_t value) { return static_cast<std::uint16_t>(value & 0xFFFF); }
constexpr std::uint16_t HighWord(std::uintptr_t value) {
    return static_cast<std::uint16_t>(value >> 16 & 0xFFFF);
}

} // namespace brixen::pvn::pvn_workflow
