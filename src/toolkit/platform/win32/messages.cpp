#include "toolkit/platform/toolkit_platform.h"
#include "toolkit/platform/win32/foreign_procedures.h"
#include "toolkit/platform/win32/handles.h"

#include <utility>

namespace brixen::zeve::platform {

namespace {

// Whether this thread is inside GetMessageW of HandleNextMessage, and not inside a message that it
// dispatches.
constinit bool gIsWaiting = false;

class Waiting {
public:
    explicit Waiting(bool isWaiting) : former(std::exchange(gIsWaiting, isWaiting)) {}
    Waiting(const Waiting&) = delete;
    Waiting& operator=(const Waiting&) = delete;
    ~Waiting() { gIsWaiting = former; }

private:
    bool former;
};

int WaitForMessage(MSG& message) {
    const Waiting waiting(true);
    return CallingProcedures([&message] { return GetMessageW(&message, nullptr, 0, 0); });
}

void HandOut(MSG& message, HWND dialog) {
    const Waiting handling(false);
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
    const int got = WaitForMessage(message);
    if (got == -1) return LoopStep::kFailed;
    if (got == 0) {
        quitCode = static_cast<std::int32_t>(message.wParam);
        return LoopStep::kQuit;
    }
    HandOut(message, Handle(dialog));
    return LoopStep::kHandled;
}

void WakeLoop() noexcept {
    if (gIsWaiting) PostThreadMessageW(GetCurrentThreadId(), WM_NULL, 0, 0);
}

std::optional<std::int32_t> TakePendingQuit() {
    MSG message = {};
    const auto take = [&message] { return PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE); };
    if (!CallingProcedures(take)) return std::nullopt;
    return static_cast<std::int32_t>(message.wParam);
}

bool IsShiftDown() noexcept { return (GetAsyncKeyState(VK_SHIFT) & 0x8000) != 0; }

NativeWindow NextTabStop(NativeWindow dialog, NativeWindow control, bool backwards) {
    return CallingProcedures(
        [=] { return Opaque(GetNextDlgTabItem(Handle(dialog), Handle(control), backwards)); });
}

} // namespace brixen::zeve::platform
