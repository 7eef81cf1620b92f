// The numbers of window messages and their parameters, each with the system's own name.
// platform/win32/system_numbers.cpp compares them with the system's headers.
#pragma once

#include <cstdint>

namespace brixen::zeve {

inline constexpr std::uint32_t kMessageActivate = 0x0006;          // WM_ACTIVATE
inline constexpr std::uint32_t kMessageSetFocus = 0x0007;          // WM_SETFOCUS
inline constexpr std::uint32_t kMessageSetText = 0x000C;           // WM_SETTEXT
inline constexpr std::uint32_t kMessageGetTextLength = 0x000E;     // WM_GETTEXTLENGTH
inline constexpr std::uint32_t kMessagePaint = 0x000F;             // WM_PAINT
inline constexpr std::uint32_t kMessageClose = 0x0010;             // WM_CLOSE
inline constexpr std::uint32_t kMessageEraseBackground = 0x0014;   // WM_ERASEBKGND
inline constexpr std::uint32_t kMessageNextDialogControl = 0x0028; // WM_NEXTDLGCTL
inline constexpr std::uint32_t kMessageSetFont = 0x0030;           // WM_SETFONT
inline constexpr std::uint32_t kMessageWindowGone = 0x0082;    // WM_NCDESTROY, the last message to a window
inline constexpr std::uint32_t kMessageKeyDown = 0x0100;       // WM_KEYDOWN
inline constexpr std::uint32_t kMessageKeyUp = 0x0101;         // WM_KEYUP
inline constexpr std::uint32_t kMessageCharacter = 0x0102;     // WM_CHAR
inline constexpr std::uint32_t kMessageSystemKeyDown = 0x0104; // WM_SYSKEYDOWN
inline constexpr std::uint32_t kMessageSystemKeyUp = 0x0105;   // WM_SYSKEYUP
inline constexpr std::uint32_t kMessageInitDialog = 0x0110;    // WM_INITDIALOG
inline constexpr std::uint32_t kMessageCommand = 0x0111;       // WM_COMMAND
inline constexpr std::uint32_t kMessageTimer = 0x0113;         // WM_TIMER
inline constexpr std::uint32_t kMessageChangeUiState = 0x0127; // WM_CHANGEUISTATE
inline constexpr std::uint32_t kMessageColorEdit = 0x0133;     // WM_CTLCOLOREDIT, the first of six in a row
inline constexpr std::uint32_t kMessageColorStatic = 0x0138;   // WM_CTLCOLORSTATIC, the last of them

inline constexpr std::uint32_t kEditGetSelection = 0x00B0;  // EM_GETSEL; both parameters point to 32 bits
inline constexpr std::uint32_t kEditSetSelection = 0x00B1;  // EM_SETSEL
inline constexpr std::uint32_t kEditSetLimitText = 0x00C5;  // EM_SETLIMITTEXT
inline constexpr std::uint32_t kButtonGetCheck = 0x00F0;    // BM_GETCHECK
inline constexpr std::uint32_t kButtonSetCheck = 0x00F1;    // BM_SETCHECK
inline constexpr std::uint32_t kButtonSetStyle = 0x00F4;    // BM_SETSTYLE; lparam kPaintAnew or 0
inline constexpr std::uint32_t kComboAddString = 0x0143;    // CB_ADDSTRING
inline constexpr std::uint32_t kComboGetSelection = 0x0147; // CB_GETCURSEL
inline constexpr std::uint32_t kComboResetContent = 0x014B; // CB_RESETCONTENT
inline constexpr std::uint32_t kComboSetSelection = 0x014E; // CB_SETCURSEL
inline constexpr std::uint32_t kStaticSetImage = 0x0172;    // STM_SETIMAGE; wparam kImageBitmap or kImageIcon
inline constexpr std::uint32_t kStaticGetImage = 0x0173;    // STM_GETIMAGE

inline constexpr std::intptr_t kPaintAnew = 1;
inline constexpr std::uintptr_t kImageBitmap = 0;
inline constexpr std::uintptr_t kImageIcon = 1;

// UIS_INITIALIZE and, in the high word, UISF_HIDEACCEL.
inline constexpr std::uintptr_t kHideAccessKeysAtFirst = 0x20003;

inline constexpr std::uintptr_t kKeyTab = 9;
inline constexpr std::uintptr_t kKeyEnter = 13;
inline constexpr std::uintptr_t kKeyAlt = 18;
inline constexpr std::uintptr_t kKeyEscape = 27;

// The toolkit's own message to a dialog: a key was released in an edit control. wparam is 1 if its text is
// empty, else 0; lparam is the CEveBox as a pointer.
inline constexpr std::uint32_t kMessageEditKeyUp = 0x2002;

} // namespace brixen::zeve
