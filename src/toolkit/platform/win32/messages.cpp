#include "toolkit/platform/toolkit_platform.h"
#include "toolkit/platform/win32/foreign_procedures.h"
#include "toolkit/platform/win32/handles.h"
#include "toolkit/platform/win32/hasty_input.h"

#include <utility>

namespace brixen::zeve::platform {

namespace {

// Set by WakeLoop, cleared by the wait that it ends.
constinit bool gIsWoken = false;

// Touch and pointer input, which systems before Windows 8 do not know and refuse.
constexpr DWORD kNewerInput = 0x1800;

// Waits until PeekMessageW has something to return or to serve. False if the system cannot wait.
bool WaitForInput() {
    const auto waitFor = [](DWORD input) {
        return CallingProcedures([input] {
            return MsgWaitForMultipleObjectsEx(0, nullptr, INFINITE, input, MWMO_INPUTAVAILABLE);
        });
    };
    return waitFor(QS_ALLINPUT | kNewerInput) != WAIT_FAILED || waitFor(QS_ALLINPUT) != WAIT_FAILED;
}

bool TakeMessage(MSG& message) {
    return CallingProcedures([&message] { return PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE); }) !=
           FALSE;
}

enum class WaitEnd { kMessage, kWoken, kFailed };

// Does what GetMessageW does, and ends after WakeLoop too. No message wakes it: a loop of the host, inside a
// message that another thread sent, would take that message for itself.
WaitEnd WaitForMessage(MSG& message) {
    gIsWoken = false;
    while (!TakeMessage(message)) {
        if (std::exchange(gIsWoken, false)) return WaitEnd::kWoken;
        if (!WaitForInput()) return WaitEnd::kFailed;
    }
    return WaitEnd::kMessage;
}

void HandOut(MSG& message, HWND dialog) {
    CallingProcedures([&message, dialog]() -> LRESULT {
        if (IsDialogMessageW(dialog, &message)) return 0;
        TranslateMessage(&message);
        return DispatchMessageW(&message);
    });
}

} // namespace

std::intptr_t Send(NativeWindow window, std::uint32_t message, std::uintptr_t wparam, std::intptr_t lparam) {
    return CallingProcedures([=] { return SendMessageW(Handle(window), message, wparam, lparam); });
}

bool Post(NativeWindow window, std::uint32_t message, std::uintptr_t wparam, std::intptr_t lparam) noexcept {
    // Without a window the system would post the message to the thread.
    if (window == nullptr) return false;
    return PostMessageW(Handle(window), message, wparam, lparam) != FALSE;
}

void PostQuit(std::int32_t code) noexcept { PostQuitMessage(code); }

LoopStep HandleNextMessage(NativeWindow dialog, std::int32_t& quitCode) {
    MSG message = {};
    switch (WaitForMessage(message)) {
    case WaitEnd::kWoken: return LoopStep::kHandled;
    case WaitEnd::kFailed: return LoopStep::kFailed;
    case WaitEnd::kMessage: break;
    }
    if (message.message == WM_QUIT) {
        quitCode = static_cast<std::int32_t>(message.wParam);
        return LoopStep::kQuit;
    }
    if (!IsHastyInput(message)) HandOut(message, Handle(dialog));
    return LoopStep::kHandled;
}

void WakeLoop() noexcept { gIsWoken = true; }

std::optional<std::int32_t> TakePendingQuit() {
    MSG message = {};
    const auto take = [&message] { return PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE); };
    if (!CallingProcedures(take)) return std::nullopt;
    return static_cast<std::int32_t>(message.wParam);
}

NativeWindow FocusedWindow() noexcept { return Opaque(GetFocus()); }

void CaptureMouse(NativeWindow window) {
    // A null window would release the mouse of another.
    if (window != nullptr) SetCapture(Handle(window));
}

void ReleaseMouse(NativeWindow window) {
    if (HasMouse(window)) ReleaseCapture();
}

bool HasMouse(NativeWindow window) noexcept { return window != nullptr && GetCapture() == Handle(window); }

bool StartTimer(NativeWindow window, std::uintptr_t id, std::uint32_t milliseconds) noexcept {
    // Without a window the system would make a timer of the thread.
    return window != nullptr && SetTimer(Handle(window), id, milliseconds, nullptr) != 0;
}

void StopTimer(NativeWindow window, std::uintptr_t id) noexcept {
    if (window != nullptr) KillTimer(Handle(window), id);
}

bool IsShiftDown() noexcept { return (GetAsyncKeyState(VK_SHIFT) & 0x8000) != 0; }

NativeWindow NextTabStop(NativeWindow dialog, NativeWindow control, bool backwards) {
    return CallingProcedures(
        [=] { return Opaque(GetNextDlgTabItem(Handle(dialog), Handle(control), backwards)); });
}

} // namespace brixen::zeve::platform
