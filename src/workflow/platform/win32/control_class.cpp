#include "workflow/platform/control_class.h"

#include "values/unicode/platform/win32/wide.h"

#include <windows.h>

namespace brixen::pvn::pvn_workflow::platform {

static_assert(kRedrawsWhenResized == (CS_HREDRAW | CS_VREDRAW));

namespace {

using lyr::gen::Wide;

constinit zeve::platform::WindowProcedure gProcedure = nullptr;
constinit bool gIsRegistered = false;

LRESULT CALLBACK ClassTrampoline(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
    return gProcedure(reinterpret_cast<zeve::NativeWindow>(window), message, wparam, lparam);
}

} // namespace

bool RegisterControlClass(const ControlClass& controlClass) noexcept {
    if (gIsRegistered) return true;
    gProcedure = controlClass.procedure;
    WNDCLASSEXW record{};
    record.cbSize = sizeof record;
    record.style = controlClass.style;
    record.lpfnWndProc = ClassTrampoline;
    record.cbWndExtra = controlClass.windowBytes;
    record.hInstance = reinterpret_cast<HINSTANCE>(zeve::platform::LibraryModule());
    record.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    record.lpszClassName = Wide(controlClass.name);
    // A class of an unloaded copy of the library has a procedure that no longer exists.
    UnregisterClassW(record.lpszClassName, record.hInstance);
    return gIsRegistered = RegisterClassExW(&record) != 0;
}

void StoreInWindow(zeve::NativeWindow window, std::int32_t offset, std::intptr_t number) noexcept {
    if (offset >= 0) SetWindowLongPtrW(reinterpret_cast<HWND>(window), offset, number);
}

std::intptr_t NumberInWindow(zeve::NativeWindow window, std::int32_t offset) noexcept {
    return offset >= 0 ? GetWindowLongPtrW(reinterpret_cast<HWND>(window), offset) : 0;
}

} // namespace brixen::pvn::pvn_workflow::platform
