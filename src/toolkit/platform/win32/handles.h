// Converts the toolkit's opaque handles and texts to the system's and back, and owns devices and selections.
#pragma once

#include "toolkit/platform/native_types.h"
#include "values/unicode/platform/win32/wide.h"

#include <string>

#include <windows.h>

namespace brixen::zeve::platform {

inline HWND Handle(NativeWindow window) { return reinterpret_cast<HWND>(window); }
inline HINSTANCE Handle(NativeModule module) { return reinterpret_cast<HINSTANCE>(module); }
inline HFONT Handle(NativeFont font) { return reinterpret_cast<HFONT>(font); }
inline HICON Handle(NativeIcon icon) { return reinterpret_cast<HICON>(icon); }
inline HDC Handle(NativeDrawing device) { return reinterpret_cast<HDC>(device); }

inline NativeWindow Opaque(HWND window) { return reinterpret_cast<NativeWindow>(window); }
inline NativeModule Opaque(HINSTANCE module) { return reinterpret_cast<NativeModule>(module); }
inline NativeFont Opaque(HFONT font) { return reinterpret_cast<NativeFont>(font); }
inline NativeIcon Opaque(HICON icon) { return reinterpret_cast<NativeIcon>(icon); }
inline NativeDrawing Opaque(HDC device) { return reinterpret_cast<NativeDrawing>(device); }

using lyr::gen::Wide;

// The device context of a window, or of the screen for null, for as long as this lives.
class BorrowedDevice {
public:
    explicit BorrowedDevice(HWND ofWindow) : window(ofWindow), device(GetDC(ofWindow)) {}
    BorrowedDevice(const BorrowedDevice&) = delete;
    BorrowedDevice& operator=(const BorrowedDevice&) = delete;
    ~BorrowedDevice() {
        if (device != nullptr) ReleaseDC(window, device);
    }
    HDC Get() const { return device; }

private:
    HWND window;
    HDC device;
};

} // namespace brixen::zeve::platform
