#include "toolkit/platform/headless/headless.h"

namespace brixen::zeve::platform {

using headless::FindWindow;
using headless::HandleNumber;
using headless::Record;
using headless::State;

namespace {

const NativeModule kLibrary = reinterpret_cast<NativeModule>(std::uintptr_t(0x400));
const NativeModule kRichEdit = reinterpret_cast<NativeModule>(std::uintptr_t(0x800));

} // namespace

void TrimSystemMenu(NativeWindow window) noexcept {
    Record("TrimSystemMenu", window);
    if (headless::Window* found = FindWindow(window)) found->menuTrimmed = true;
}

void GreyCloseItem(NativeWindow window) noexcept {
    Record("GreyCloseItem", window);
    if (headless::Window* found = FindWindow(window)) found->closeGreyed = true;
}

void SetInputMethodOpen(NativeWindow window, bool open) noexcept {
    Record("SetInputMethodOpen", window, {open});
    if (headless::Window* found = FindWindow(window)) found->inputMethodOpen = open;
}

void Invalidate(NativeWindow window) noexcept { Record("Invalidate", window); }

void PaintFace(NativeWindow window) noexcept { Record("PaintFace", window); }

void EraseFace(NativeWindow window, NativeDrawing device) noexcept {
    Record("EraseFace", window, {HandleNumber(device)});
}

void LockUpdates(NativeWindow window) noexcept {
    Record("LockUpdates", window);
    State().locked = window;
}

void UnlockUpdates() noexcept {
    Record("UnlockUpdates");
    State().locked = nullptr;
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

void ShowErrorMessage(NativeWindow owner, const char16_t* text) noexcept {
    Record("ShowErrorMessage", owner, {}, text);
}

NativeModule LibraryModule() noexcept {
    Record("LibraryModule");
    return kLibrary;
}

NativeModule LoadRichEdit() noexcept {
    Record("LoadRichEdit");
    if (headless::Refuses(State().refuseRichEdit)) return nullptr;
    ++State().richEditLoads;
    return kRichEdit;
}

void UnloadModule(NativeModule module) noexcept {
    Record("UnloadModule", nullptr, {HandleNumber(module)});
    if (module == kRichEdit) --State().richEditLoads;
}

void RegisterCommonControls() noexcept { Record("RegisterCommonControls"); }

} // namespace brixen::zeve::platform
