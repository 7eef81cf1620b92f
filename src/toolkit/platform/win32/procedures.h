// The window procedure that the system calls for a dialog's window.
#pragma once

#include <windows.h>

namespace brixen::zeve::platform {

LRESULT CALLBACK DialogTrampoline(HWND window, UINT message, WPARAM wparam, LPARAM lparam);

} // namespace brixen::zeve::platform
