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
inline constexpr std::uint16_t kNotificationPressed = 0; // BN_CLICKED, and the keys Enter and Esc
// A keyboard shortcut; of a popup or a list, another row chosen: CBN_SELCHANGE, LBN_SELCHANGE.
inline constexpr std::uint16_t kNotificationKey = 1;
inline constexpr std::uint16_t kNotificationButtonHasFocus = 6;      // BN_SETFOCUS, with the style BS_NOTIFY
inline constexpr std::uint16_t kNotificationButtonLosesFocus = 7;    // BN_KILLFOCUS, the same
inline constexpr std::uint16_t kNotificationPopupHasFocus = 3;       // CBN_SETFOCUS
inline constexpr std::uint16_t kNotificationEditHasFocus = 0x0100;   // EN_SETFOCUS
inline constexpr std::uint16_t kNotificationEditLosesFocus = 0x0200; // EN_KILLFOCUS
inline constexpr std::uint16_t kNotificationEditChanged = 0x0300;    // EN_CHANGE
inline constexpr std::uint16_t kNotificationEditChanging = 0x0400;   // EN_UPDATE

// Returns whether a notification reports a use of the control: a press, another choice, a changed text. The
// others report the focus, or that the control was enabled or disabled.
constexpr bool IsUseOfControl(std::uint16_t notification) {
    return notification == kNotificationPressed || notification == kNotificationKey ||
           notification == kNotificationEditChanged || notification == kNotificationEditChanging;
}

// The control ids that the system's keyboard rules send for Enter and Esc.
inline constexpr std::uint16_t kIdEnter = 1;  // IDOK
inline constexpr std::uint16_t kIdEscape = 2; // IDCANCEL

// Messages to pane controls, and from them to tooltips and parents.
inline constexpr std::uint32_t kMessageCreate = 0x0001;          // WM_CREATE
inline constexpr std::uint32_t kMessageDestroy = 0x0002;         // WM_DESTROY
inline constexpr std::uint32_t kMessageSize = 0x0005;            // WM_SIZE
inline constexpr std::uint32_t kMessageLosesFocus = 0x0008;      // WM_KILLFOCUS
inline constexpr std::uint32_t kMessageEnable = 0x000A;          // WM_ENABLE
inline constexpr std::uint32_t kMessageSystemColors = 0x0015;    // WM_SYSCOLORCHANGE
inline constexpr std::uint32_t kMessageSetCursor = 0x0020;       // WM_SETCURSOR
inline constexpr std::uint32_t kMessageGetFont = 0x0031;         // WM_GETFONT
inline constexpr std::uint32_t kMessageNotify = 0x004E;          // WM_NOTIFY
inline constexpr std::uint32_t kMessageDialogCode = 0x0087;      // WM_GETDLGCODE
inline constexpr std::uint32_t kMessageUpdateUiState = 0x0128;   // WM_UPDATEUISTATE
inline constexpr std::uint32_t kMessageQueryUiState = 0x0129;    // WM_QUERYUISTATE
inline constexpr std::uint32_t kMessageLeftButtonUp = 0x0202;    // WM_LBUTTONUP
inline constexpr std::uint32_t kMessageLeftDoubleClick = 0x0203; // WM_LBUTTONDBLCLK
inline constexpr std::uint32_t kMessageMouseFirst = 0x0200;      // WM_MOUSEFIRST
inline constexpr std::uint32_t kMessageMouseLast = 0x020D;       // WM_MOUSELAST
inline constexpr std::uint32_t kMessageMouseLeave = 0x02A3;      // WM_MOUSELEAVE
inline constexpr std::uint32_t kMessagePrintClient = 0x0318;     // WM_PRINTCLIENT
inline constexpr std::uint32_t kButtonClick = 0x00F5;            // BM_CLICK
inline constexpr std::uint32_t kTooltipActivate = 0x0401;        // TTM_ACTIVATE

// To and from sliders and lists.
inline constexpr std::uint32_t kMessageHorizontalScroll = 0x0114; // WM_HSCROLL; lparam is the slider
inline constexpr std::uint32_t kMessageSetRedraw = 0x000B;        // WM_SETREDRAW
inline constexpr std::uint32_t kSliderGetPosition = 0x0400;       // TBM_GETPOS
inline constexpr std::uint32_t kSliderSetPosition = 0x0405;       // TBM_SETPOS; wparam kPaintAnew or 0
inline constexpr std::uint32_t kSliderSetLargest = 0x0408;        // TBM_SETRANGEMAX
inline constexpr std::uint32_t kSliderSetTickDistance = 0x0414;   // TBM_SETTICFREQ
inline constexpr std::uint32_t kSliderSetPage = 0x0415;           // TBM_SETPAGESIZE
inline constexpr std::uint32_t kListAddString = 0x0180;           // LB_ADDSTRING
inline constexpr std::uint32_t kListResetContent = 0x0184;        // LB_RESETCONTENT
inline constexpr std::uint32_t kListSetExtent = 0x0194;           // LB_SETHORIZONTALEXTENT

inline constexpr std::int32_t kNotificationClick = -2; // NM_CLICK, the code of WM_NOTIFY

// The answers to WM_GETDLGCODE, added up.
inline constexpr std::intptr_t kWantsCharacters = 0x80; // DLGC_WANTCHARS
inline constexpr std::intptr_t kIsAButton = 0x2000;     // DLGC_BUTTON

// A bit of the answer to WM_QUERYUISTATE: access keys are not underlined.
inline constexpr std::intptr_t kHidesAccessKeys = 2; // UISF_HIDEACCEL

inline constexpr std::uint32_t kStaticNotify = 0x0100;           // SS_NOTIFY
inline constexpr std::int32_t kDefaultPlace = -0x7FFFFFFF - 1;   // CW_USEDEFAULT
inline constexpr char16_t kTooltipClass[] = u"tooltips_class32"; // TOOLTIPS_CLASS
// A bit in lparam of a key message: the key was down before, so it is held.
inline constexpr std::intptr_t kKeyRepeats = 1 << 30;
inline constexpr std::uintptr_t kKeySpace = 32; // VK_SPACE

// How StartProgram shows the window of a program.
inline constexpr std::int32_t kShowRestored = 9; // SW_RESTORE

} // namespace brixen::pvn::pvn_workflow
