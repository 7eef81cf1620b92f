#include "toolkit/platform/toolkit_platform.h"

#include <windows.h>

#include <commctrl.h>

namespace brixen::zeve::platform {

void InsertTab(NativeWindow window, std::int32_t index, const char16_t* text) noexcept {
    if (!window) return;
    TCITEMW item = {};
    item.mask = TCIF_TEXT | TCIF_IMAGE;
    item.pszText = reinterpret_cast<wchar_t*>(const_cast<char16_t*>(text)); // only read
    item.iImage = -1;
    SendMessageW(reinterpret_cast<HWND>(window), TCM_INSERTITEMW, static_cast<WPARAM>(index),
                 reinterpret_cast<LPARAM>(&item));
}

} // namespace brixen::zeve::platform
