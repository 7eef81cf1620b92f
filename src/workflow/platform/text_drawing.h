// Texts that pane controls draw themselves: their fonts, how much room they take, and the drawing. `&` before
// a character underlines it and `&&` is one `&`. A null font is the one that a device has at first. A null
// device is harmless. Nothing here throws. Everything belongs to the thread of the windows.
#pragma once

#include "toolkit/platform/native_types.h"
#include "toolkit/platform/toolkit_platform.h"
#include "workflow/platform/painting.h"

#include <cstdint>
#include <optional>
#include <string_view>

namespace brixen::pvn::pvn_workflow::platform {

// --- Fonts ---

// Returns how the font was made; nothing for null and for a handle that is no font.
[[nodiscard]] std::optional<zeve::platform::FontRecord> FontRecordOf(zeve::NativeFont font) noexcept;

inline constexpr std::int32_t kStockSystemFont = 13; // SYSTEM_FONT

// Returns a font that nobody deletes.
[[nodiscard]] zeve::NativeFont StockFont(std::int32_t index) noexcept;

// --- Texts ---

// Formats of a text in an area, added up. Without the first two it begins at the left.
inline constexpr std::uint32_t kTextCenter = 0x1;            // DT_CENTER
inline constexpr std::uint32_t kTextRight = 0x2;             // DT_RIGHT
inline constexpr std::uint32_t kTextBreaksLines = 0x10;      // DT_WORDBREAK
inline constexpr std::uint32_t kTextMeasure = 0x400;         // DT_CALCRECT, which MeasureTextIn adds
inline constexpr std::uint32_t kTextShowsAmpersands = 0x800; // DT_NOPREFIX: every `&` is a character
inline constexpr std::uint32_t kTextRightToLeft = 0x20000;   // DT_RTLREADING
inline constexpr std::uint32_t kTextHidesPrefix = 0x100000;  // DT_HIDEPREFIX: no character is underlined

// Returns the area that the text takes if it is drawn from the top left of `area`, never broken wider than
// that unless one word is wider. An empty text takes nothing: its area ends where it begins. The device is
// that of the window.
[[nodiscard]] zeve::platform::Rectangle MeasureTextIn(zeve::NativeWindow window, zeve::NativeFont font,
                                                      std::u16string_view text,
                                                      const zeve::platform::Rectangle& area,
                                                      std::uint32_t format) noexcept;

struct TextLook {
    zeve::NativeFont font = nullptr;
    Color color = 0;
    std::uint32_t format = 0;
};

// Draws without a background and leaves the device as it was.
void DrawTextIn(zeve::NativeDrawing device, std::u16string_view text, const zeve::platform::Rectangle& area,
                const TextLook& look) noexcept;
// Returns the color that the device has for texts.
[[nodiscard]] Color TextColorOf(zeve::NativeDrawing device) noexcept;
// Draws the dotted frame of the focus. Drawn twice it is gone. Nothing for an empty area.
void DrawFocusFrame(zeve::NativeDrawing device, const zeve::platform::Rectangle& area) noexcept;

} // namespace brixen::pvn::pvn_workflow::platform
