// The numbers of the window messages and notifications that the toolkit and its hosts name, as the system
// defines them.
#pragma once

#include <cstdint>

namespace brixen::zeve {

inline constexpr std::uint32_t kMessageActivate = 0x0006;
inline constexpr std::uint32_t kMessageSetFocus = 0x0007;
inline constexpr std::uint32_t kMessageGetTextLength = 0x000E;
inline constexpr std::uint32_t kMessagePaint = 0x000F;
inline constexpr std::uint32_t kMessageClose = 0x0010;
inline constexpr std::uint32_t kMessageEraseBackground = 0x0014;
inline constexpr std::uint32_t kMessageNextDialogControl = 0x0028;
inline constexpr std::uint32_t kMessageSetFont = 0x0030;
inline constexpr std::uint32_t kMessageWindowGone = 0x0082; // the last message of a window
inline constexpr std::uint32_t kMessageKeyDown = 0x0100;
inline constexpr std::uint32_t kMessageKeyUp = 0x0101;
inline constexpr std::uint32_t kMessageCharacter = 0x0102;
inline constexpr std::uint32_t kMessageSystemKeyDown = 0x0104;
inline constexpr std::uint32_t kMessageSystemKeyUp = 0x0105;
inline constexpr std::uint32_t kMessageInitDialog = 0x0110;
inline constexpr std::uint32_t kMessageCommand = 0x0111;
inline constexpr std::uint32_t kMessageTimer = 0x0113;
inline constexpr std::uint32_t kMessageChangeUiState = 0x0127;
inline constexpr std::uint32_t kMessageColourEdit = 0x0133; // the first of the six colour messages
inline constexpr std::uint32_t kMessageColourListBox = 0x0134;
inline constexpr std::uint32_t kMessageColourButton = 0x0135;
inline constexpr std::uint32_t kMessageColourDialog = 0x0136;
inline constexpr std::uint32_t kMessageColourScrollBar = 0x0137;
inline constexpr std::uint32_t kMessageColourStatic = 0x0138; // the last of them

inline constexpr std::uint32_t kEditGetSelection = 0x00B0; // both parameters: where to put 32 bits
inline constexpr std::uint32_t kEditSetSelection = 0x00B1;
inline constexpr std::uint32_t kEditSetLimitText = 0x00C5;
inline constexpr std::uint32_t kButtonGetCheck = 0x00F0;
inline constexpr std::uint32_t kButtonSetCheck = 0x00F1;
inline constexpr std::uint32_t kButtonSetStyle = 0x00F4;
inline constexpr std::uint32_t kButtonClick = 0x00F5;
inline constexpr std::uint32_t kComboAddString = 0x0143;
inline constexpr std::uint32_t kComboGetSelection = 0x0147;
inline constexpr std::uint32_t kComboResetContent = 0x014B;
inline constexpr std::uint32_t kComboSetSelection = 0x014E;
inline constexpr std::uint32_t kStaticSetImage = 0x0172; // wparam kImageBitmap or kImageIcon
inline constexpr std::uint32_t kStaticGetImage = 0x0173;

inline constexpr std::uintptr_t kImageBitmap = 0;
inline constexpr std::uintptr_t kImageIcon = 1;

inline constexpr std::uintptr_t kKeyTab = 9;
inline constexpr std::uintptr_t kKeyEnter = 13;
inline constexpr std::uintptr_t kKeyAlt = 18;
inline constexpr std::uintptr_t kKeyEscape = 27;

// The toolkit's own message to a dialog: a key was released in an edit control. wparam is 1 if its text is
// empty and 0 if not; lparam is the CEveBox at full pointer width.
inline constexpr std::uint32_t kMessageEditKeyUp = 0x2002;

} // namespace brixen::zeve
