#include "toolkit/platform/toolkit_platform.h"
#include "toolkit/platform/win32/handles.h"

namespace brixen::zeve::platform {

std::intptr_t Send(NativeWindow window, std::uint32_t message, std::uintptr_t wparam,
                   std::intptr_t lparam) noexcept {
    return SendMessageW(Handle(window), message, wparam, lparam);
}

bool Post(NativeWindow window, std::uint32_t message, std::uintptr_t wparam, std::intptr_t lparam) noexcept {
    // The system would post it to the thread.
    if (window == nullptr) return false;
    return PostMessageW(Handle(window), message, wparam, lparam) != FALSE;
}

void PostQuit(std::int32_t code) noexcept { PostQuitMessage(code); }

LoopStep HandleNextMessage(NativeWindow dialog, std::uintptr_t& code) noexcept {
    MSG message;
    const int got = GetMessageW(&message, nullptr, 0, 0);
    if (got == -1) return LoopStep::Failed;
    if (got == 0) {
        code = message.wParam;
        return LoopStep::Quit;
    }
    if (!IsDialogMessageW(Handle(dialog), &message)) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
    return LoopStep::Handled;
}

bool IsShiftDown() noexcept { return (GetAsyncKeyState(VK_SHIFT) & 0x8000) != 0; }

NativeWindow NextTabStop(NativeWindow dialog, NativeWindow control, bool backwards) noexcept {
    return Opaque(GetNextDlgTabItem(Handle(dialog), Handle(control), backwards));
}

} // namespace brixen::zeve::platform
