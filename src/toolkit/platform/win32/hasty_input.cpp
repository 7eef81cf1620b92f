#include "toolkit/platform/win32/hasty_input.h"

#include <cstdlib>
#include <utility>

namespace brixen::zeve::platform {
namespace {

struct Press {
    HWND window = nullptr;
    POINT place = {}; // on the screen
    DWORD time = 0;   // milliseconds
};

constinit Press gLastPress = {};

// The message's own place: its `pt` is the mouse's, which a program that posts a press does not move.
Press PressOf(const MSG& message) noexcept {
    POINT place = {static_cast<short>(LOWORD(message.lParam)), static_cast<short>(HIWORD(message.lParam))};
    ClientToScreen(message.hwnd, &place);
    return {message.hwnd, place, message.time};
}

// The limits of the system are the sizes of a rectangle around the first press.
bool AreNear(const POINT& one, const POINT& other) noexcept {
    return std::abs(one.x - other.x) * 2 <= GetSystemMetrics(SM_CXDOUBLECLK) &&
           std::abs(one.y - other.y) * 2 <= GetSystemMetrics(SM_CYDOUBLECLK);
}

bool IsSecondPressElsewhere(const MSG& message) noexcept {
    const Press press = PressOf(message);
    const Press last = std::exchange(gLastPress, press);
    return last.window && last.window != press.window && press.time - last.time <= GetDoubleClickTime() &&
           AreNear(last.place, press.place);
}

} // namespace

bool IsHastyInput(const MSG& message) noexcept {
    if (message.message == WM_LBUTTONDOWN) return IsSecondPressElsewhere(message);
    constexpr LPARAM kWasDown = LPARAM(1) << 30;
    return message.message == WM_KEYDOWN && message.wParam == VK_ESCAPE && (message.lParam & kWasDown) != 0;
}

} // namespace brixen::zeve::platform
