// What pane controls need of the system besides windows, painting and texts: tooltips, the cursor, the mouse
// that leaves, the user's settings and the shell. Null windows are harmless. Everything belongs to the thread
// of the windows. The functions that are not noexcept send messages and throw what window procedures of the
// host throw.
#pragma once

#include "toolkit/platform/native_types.h"
#include "toolkit/platform/toolkit_platform.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>

namespace brixen::pvn::pvn_workflow::platform {

// --- Tooltips ---

// Shows `text` while the mouse rests in an area of the control. Each control has one such area: a later call
// replaces it. The tooltip keeps a copy of the text.
void SetTooltip(zeve::NativeWindow tooltip, zeve::NativeWindow control, const zeve::platform::Rectangle& area,
                const char16_t* text);
// Passes a mouse message of the control on to the tooltip, which takes its time by it.
void RelayToTooltip(zeve::NativeWindow tooltip, zeve::NativeWindow control, std::uint32_t message,
                    std::uintptr_t wparam, std::intptr_t lparam);

// --- Mouse ---

struct Point {
    std::int32_t x = 0, y = 0;
};

// Returns the place of the mouse in the client area of the window.
[[nodiscard]] Point MouseIn(zeve::NativeWindow window) noexcept;
// Returns the hand, which nobody deletes, or null.
[[nodiscard]] zeve::NativeCursor HandCursor() noexcept;
// Shows the cursor until the mouse moves on. Null changes nothing.
void ShowCursor(zeve::NativeCursor cursor) noexcept;
// Has the system send kMessageMouseLeave once when the mouse has left the window.
void AskForMouseLeave(zeve::NativeWindow window) noexcept;

// --- Keyboard ---

// Whether the key is held, of the key message that lparam of kMessageDialogCode points to.
[[nodiscard]] bool IsHeldKey(std::intptr_t lparam) noexcept;

// --- Settings of the user ---

// A value as it is stored. Values of more bytes cannot be read.
struct UserSetting {
    static constexpr std::size_t kMostBytes = 24;
    std::uint32_t type = 0;
    std::size_t size = 0;
    std::array<std::byte, kMostBytes> bytes{};
};
inline constexpr std::uint32_t kSettingText = 1;           // REG_SZ
inline constexpr std::uint32_t kSettingExpandableText = 2; // REG_EXPAND_SZ

// Reads a value of a key below the current user's. Returns nothing without the key or the value, and for a
// value that is too long.
[[nodiscard]] std::optional<UserSetting> ReadUserSetting(const char16_t* key, const char16_t* value) noexcept;

// --- Shell ---

// Has the shell open a file or an address with the user's own program. Returns whether it was opened. The
// call can run window procedures.
bool OpenWithShell(const char16_t* target) noexcept;

// --- Notifications ---

// What lparam of kMessageNotify points to.
struct NotificationHeader {
    zeve::NativeWindow window = nullptr;
    std::uintptr_t id = 0;
    std::int32_t code = 0;
};

} // namespace brixen::pvn::pvn_workflow::platform
