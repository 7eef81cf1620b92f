// The window system's styles and extended styles that boxes use. Its messages stand in window_messages.h.
#pragma once

#include <cstdint>

namespace brixen::zeve {

namespace style {
inline constexpr std::uint32_t kChild = 0x40000000;
inline constexpr std::uint32_t kVisible = 0x10000000;
inline constexpr std::uint32_t kDisabled = 0x08000000;
inline constexpr std::uint32_t kCaption = 0x00C00000;
inline constexpr std::uint32_t kBorder = 0x00800000;
inline constexpr std::uint32_t kVerticalScroll = 0x00200000;
inline constexpr std::uint32_t kSystemMenu = 0x00080000;
inline constexpr std::uint32_t kTabStop = 0x00010000;

inline constexpr std::uint32_t kDefaultPushButton = 1;
inline constexpr std::uint32_t kAutoCheckBox = 3;
inline constexpr std::uint32_t kRadioButton = 4; // not automatic: the host moves the mark
inline constexpr std::uint32_t kGroupBox = 7;
inline constexpr std::uint32_t kButtonKinds = 30;

inline constexpr std::uint32_t kStaticRight = 2;
inline constexpr std::uint32_t kStaticIcon = 3;
inline constexpr std::uint32_t kStaticFrame = 7;
inline constexpr std::uint32_t kStaticBitmap = 0xE;
inline constexpr std::uint32_t kStaticEtchedLine = 0x10;
inline constexpr std::uint32_t kStaticFrames = 12;
inline constexpr std::uint32_t kMayHoldAnIcon = 3;

inline constexpr std::uint32_t kEditMultiline = 4;
inline constexpr std::uint32_t kEditPassword = 32;
inline constexpr std::uint32_t kEditAutoVerticalScroll = 64;
inline constexpr std::uint32_t kEditAutoHorizontalScroll = 128;
inline constexpr std::uint32_t kEditReadOnly = 2048;
inline constexpr std::uint32_t kEditWantReturn = 0x1000;

inline constexpr std::uint32_t kDropDownList = 3;
inline constexpr std::uint32_t kListNotify = 1;
inline constexpr std::uint32_t kListWantKeyboard = 0x400;
inline constexpr std::uint32_t kUpright = 1; // of a scroll bar, a tree, a tab control
inline constexpr std::uint32_t kSliderTicks = 1;
inline constexpr std::uint32_t kTreeDisableDragDrop = 0x10;
inline constexpr std::uint32_t kTreeHasButtons = 1;
inline constexpr std::uint32_t kTreeHasLines = 2;
inline constexpr std::uint32_t kTreeLinesAtRoot = 4;
} // namespace style

namespace extended {
inline constexpr std::uint32_t kTopMost = 8; // on plain controls: kept as it stands
inline constexpr std::uint32_t kClientEdge = 0x200;
inline constexpr std::uint32_t kRight = 0x1000;
inline constexpr std::uint32_t kRightToLeftReading = 0x2000;
inline constexpr std::uint32_t kLeftScrollBar = 0x4000;
inline constexpr std::uint32_t kControlParent = 0x10000;
inline constexpr std::uint32_t kField = kTopMost | kClientEdge;
inline constexpr std::uint32_t kRightToLeft = kRightToLeftReading | kLeftScrollBar | kRight;
} // namespace extended

inline constexpr std::uintptr_t kChecked = 1;

} // namespace brixen::zeve
