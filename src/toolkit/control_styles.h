// The styles and extended styles of windows that boxes use, each with the system's own name.
// platform/win32/system_numbers.cpp compares them with the system's headers.
#pragma once

#include <cstdint>

namespace brixen::zeve {

namespace style {
inline constexpr std::uint32_t kPopup = 0x80000000;          // WS_POPUP
inline constexpr std::uint32_t kChild = 0x40000000;          // WS_CHILD
inline constexpr std::uint32_t kVisible = 0x10000000;        // WS_VISIBLE
inline constexpr std::uint32_t kDisabled = 0x08000000;       // WS_DISABLED
inline constexpr std::uint32_t kClipSiblings = 0x04000000;   // WS_CLIPSIBLINGS
inline constexpr std::uint32_t kClipChildren = 0x02000000;   // WS_CLIPCHILDREN
inline constexpr std::uint32_t kCaption = 0x00C00000;        // WS_CAPTION
inline constexpr std::uint32_t kBorder = 0x00800000;         // WS_BORDER
inline constexpr std::uint32_t kDialogFrame = 0x00400000;    // WS_DLGFRAME
inline constexpr std::uint32_t kVerticalScroll = 0x00200000; // WS_VSCROLL
inline constexpr std::uint32_t kSystemMenu = 0x00080000;     // WS_SYSMENU
inline constexpr std::uint32_t kGroup = 0x00020000;          // WS_GROUP, the first of a group
inline constexpr std::uint32_t kTabStop = 0x00010000;        // WS_TABSTOP

inline constexpr std::uint32_t kPushButton = 0;        // BS_PUSHBUTTON
inline constexpr std::uint32_t kDefaultPushButton = 1; // BS_DEFPUSHBUTTON
inline constexpr std::uint32_t kAutoCheckBox = 3;      // BS_AUTOCHECKBOX
inline constexpr std::uint32_t kRadioButton = 4; // BS_RADIOBUTTON, not automatic: the host moves the mark
inline constexpr std::uint32_t kGroupBox = 7;    // BS_GROUPBOX
inline constexpr std::uint32_t kButtonNotifies = 0x4000; // BS_NOTIFY, reports the focus too
// Not a style: a button with none of these bits is a push button, default or not.
inline constexpr std::uint32_t kButtonKinds = 30;

inline constexpr std::uint32_t kStaticRight = 2;         // SS_RIGHT
inline constexpr std::uint32_t kStaticIcon = 3;          // SS_ICON
inline constexpr std::uint32_t kStaticFrame = 7;         // SS_BLACKFRAME
inline constexpr std::uint32_t kStaticBitmap = 0xE;      // SS_BITMAP
inline constexpr std::uint32_t kStaticEtchedLine = 0x10; // SS_ETCHEDHORZ
// Not a style: a static control with one of these bits is a frame, a bitmap or the like.
inline constexpr std::uint32_t kStaticFrames = 12;
// Not a style: only a control with one of these bits is asked for an icon.
inline constexpr std::uint32_t kMayHoldAnIcon = 3;

inline constexpr std::uint32_t kEditMultiline = 4;              // ES_MULTILINE
inline constexpr std::uint32_t kEditPassword = 32;              // ES_PASSWORD
inline constexpr std::uint32_t kEditAutoVerticalScroll = 64;    // ES_AUTOVSCROLL
inline constexpr std::uint32_t kEditAutoHorizontalScroll = 128; // ES_AUTOHSCROLL
inline constexpr std::uint32_t kEditReadOnly = 2048;            // ES_READONLY
inline constexpr std::uint32_t kEditWantReturn = 0x1000;        // ES_WANTRETURN

inline constexpr std::uint32_t kDropDownList = 3;           // CBS_DROPDOWNLIST
inline constexpr std::uint32_t kListNotify = 1;             // LBS_NOTIFY
inline constexpr std::uint32_t kListWantKeyboard = 0x400;   // LBS_WANTKEYBOARDINPUT
inline constexpr std::uint32_t kUpright = 1;                // SBS_VERT; trees and tab controls use it too
inline constexpr std::uint32_t kSliderTicks = 1;            // TBS_AUTOTICKS
inline constexpr std::uint32_t kTreeDisableDragDrop = 0x10; // TVS_DISABLEDRAGDROP
inline constexpr std::uint32_t kTreeHasButtons = 1;         // TVS_HASBUTTONS
inline constexpr std::uint32_t kTreeHasLines = 2;           // TVS_HASLINES
inline constexpr std::uint32_t kTreeLinesAtRoot = 4;        // TVS_LINESATROOT
} // namespace style

namespace extended {
inline constexpr std::uint32_t kTopMost = 8;                 // WS_EX_TOPMOST. Kept: plain controls have it
inline constexpr std::uint32_t kDialogModalFrame = 1;        // WS_EX_DLGMODALFRAME
inline constexpr std::uint32_t kWindowEdge = 0x100;          // WS_EX_WINDOWEDGE
inline constexpr std::uint32_t kClientEdge = 0x200;          // WS_EX_CLIENTEDGE
inline constexpr std::uint32_t kRight = 0x1000;              // WS_EX_RIGHT
inline constexpr std::uint32_t kRightToLeftReading = 0x2000; // WS_EX_RTLREADING
inline constexpr std::uint32_t kLeftScrollBar = 0x4000;      // WS_EX_LEFTSCROLLBAR
inline constexpr std::uint32_t kControlParent = 0x10000;     // WS_EX_CONTROLPARENT
// Fields and lists.
inline constexpr std::uint32_t kField = kTopMost | kClientEdge;
inline constexpr std::uint32_t kRightToLeft = kRightToLeftReading | kLeftScrollBar | kRight;
} // namespace extended

// BST_CHECKED, the mark of a button in its messages.
inline constexpr std::uintptr_t kChecked = 1;

} // namespace brixen::zeve
