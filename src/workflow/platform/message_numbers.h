// The system's numbers that panes and hosts name besides those of toolkit/message_numbers.h, each with the
// system's own name. win32/pane_platform.cpp checks them against the system's headers.
#pragma once

#include <cstdint>

namespace brixen::pvn::pvn_workflow {

inline constexpr std::uint32_t kMessageFrameButtonDown = 0x00A1;  // WM_NCLBUTTONDOWN
inline constexpr std::uint32_t kMessageMouseMove = 0x0200;        // WM_MOUSEMOVE
inline constexpr std::uint32_t kMessageLeftButtonDown = 0x0201;   // WM_LBUTTONDOWN
inline constexpr std::uint32_t kMessageRightButtonDown = 0x0204;  // WM_RBUTTONDOWN
inline constexpr std::uint32_t kMessageMiddleButtonDown = 0x0207; // WM_MBUTTONDOWN
// WM_PARENTNOTIFY; the low word of wparam is the message of the child.
inline constexpr std::uint32_t kMessageParentNotify = 0x0210;

// The high word of wparam of WM_COMMAND.
inline constexpr std::uint16_t kNotificationPressed = 0;             // BN_CLICKED, and the keys Enter and Esc
inline constexpr std::uint16_t kNotificationKey = 1;                 // a keyboard shortcut
inline constexpr std::uint16_t kNotificationPopupHasFocus = 3;       // CBN_SETFOCUS
inline constexpr std::uint16_t kNotificationEditHasFocus = 0x0100;   // EN_SETFOCUS
inline constexpr std::uint16_t kNotificationEditLosesFocus = 0x0200; // EN_KILLFOCUS

// The control ids that the system's keyboard rules send for Enter and Esc.
inline constexpr std::uint16_t kIdEnter = 1;  // IDOK
inline constexpr std::uint16_t kIdEscape = 2; // IDCANCEL

// How StartProgram shows the window of a program.
inline constexpr std::int32_t kShowRestored = 9; // SW_RESTORE

} // namespace brixen::pvn::pvn_workflow
