#include "workflow/platform/control_platform.h"

#include "workflow/platform/headless/control_recorder.h"

#include <new>

namespace brixen::pvn::pvn_workflow::platform {

using zeve::platform::Rectangle;

namespace {

const auto kHand = reinterpret_cast<zeve::NativeCursor>(std::uintptr_t(0x900));

} // namespace

ControlRecorder& TheControlRecorder() {
    static ControlRecorder recorder;
    return recorder;
}

void SetTooltip(zeve::NativeWindow tooltip, zeve::NativeWindow control, const Rectangle& area,
                const char16_t* text) {
    if (tooltip == nullptr) return;
    TheControlRecorder().tools.push_back({tooltip, control, area, text});
}

void RelayToTooltip(zeve::NativeWindow tooltip, zeve::NativeWindow control, std::uint32_t message,
                    std::uintptr_t wparam, std::intptr_t lparam) {
    if (tooltip == nullptr) return;
    TheControlRecorder().relayed.push_back({control, message, wparam, lparam});
}

Point MouseIn(zeve::NativeWindow) noexcept { return TheControlRecorder().mouse; }

zeve::NativeCursor HandCursor() noexcept { return kHand; }

void ShowCursor(zeve::NativeCursor cursor) noexcept {
    if (cursor != nullptr) ++TheControlRecorder().cursorsShown;
}

void AskForMouseLeave(zeve::NativeWindow window) noexcept try {
    TheControlRecorder().leavesAskedFor.push_back(window);
} catch (const std::bad_alloc&) {
    // A test that lets memory run out reads no requests.
}

bool IsHeldKey(std::intptr_t) noexcept { return TheControlRecorder().isKeyHeld; }

std::optional<UserSetting> ReadUserSetting(const char16_t* key, const char16_t* value) noexcept try {
    TheControlRecorder().settingsKey = key;
    const auto found = TheControlRecorder().settings.find(value);
    if (found == TheControlRecorder().settings.end()) return {};
    return found->second;
} catch (const std::bad_alloc&) {
    return {};
}

bool OpenWithShell(const char16_t* target) noexcept try {
    TheControlRecorder().opened.push_back(target);
    if (TheControlRecorder().whileOpening) TheControlRecorder().whileOpening();
    return !TheControlRecorder().refuseToOpen;
} catch (const std::bad_alloc&) {
    return false;
}

} // namespace brixen::pvn::pvn_workflow::platform
