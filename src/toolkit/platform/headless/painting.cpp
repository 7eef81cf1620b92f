#include "toolkit/platform/headless/headless.h"

#include <utility>

namespace brixen::zeve::platform {

using headless::HandleNumber;
using headless::Record;
using headless::State;

void Invalidate(NativeWindow window) noexcept { Record("Invalidate", window); }

void PaintFace(NativeWindow window) { Record("PaintFace", window); }

void EraseFace(NativeWindow window, NativeDrawing device) noexcept {
    Record("EraseFace", window, {HandleNumber(device)});
}

void LockUpdates(NativeWindow window) noexcept {
    Record("LockUpdates", window);
    if (State().locked == nullptr) State().locked = State().lockedByLibrary = window;
}

void UnlockUpdates() noexcept {
    Record("UnlockUpdates");
    if (std::exchange(State().lockedByLibrary, nullptr) != nullptr) State().locked = nullptr;
}

NativeIcon CopySystemIcon(std::uint16_t id, std::int32_t width, std::int32_t height) noexcept {
    Record("CopySystemIcon", nullptr, {id, width, height});
    if (headless::Refuses(State().refuseIcon)) return nullptr;
    try {
        return *State().icons.insert(headless::NewHandle<NativeIcon>()).first;
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}

void DeleteIcon(NativeIcon icon) noexcept {
    Record("DeleteIcon", nullptr, {HandleNumber(icon)});
    State().icons.erase(icon);
}

} // namespace brixen::zeve::platform
