#include "toolkit/platform/toolkit_platform.h"
#include "toolkit/platform/win32/handles.h"

#include <utility>

namespace brixen::zeve::platform {

namespace {

constinit HWND gLocked = nullptr; // by LockUpdates; null for none

// The device that a window paints on, for as long as this lives.
class Painting {
public:
    explicit Painting(HWND ofWindow) : window(ofWindow), device(BeginPaint(ofWindow, &area)) {}
    Painting(const Painting&) = delete;
    Painting& operator=(const Painting&) = delete;
    ~Painting() {
        if (device != nullptr) EndPaint(window, &area);
    }
    HDC Device() const { return device; }
    const RECT& Area() const { return area.rcPaint; }

private:
    HWND window;
    PAINTSTRUCT area = {};
    HDC device;
};

void FillWithFace(HDC device, const RECT& area) { FillRect(device, &area, GetSysColorBrush(COLOR_BTNFACE)); }

} // namespace

void Invalidate(NativeWindow window) noexcept {
    // To the system a null window means all windows.
    if (window != nullptr) InvalidateRect(Handle(window), nullptr, TRUE);
}

void PaintFace(NativeWindow window) {
    const Painting painting(Handle(window));
    if (painting.Device() != nullptr) FillWithFace(painting.Device(), painting.Area());
}

void EraseFace(NativeWindow, NativeDrawing device) noexcept {
    RECT area = {};
    if (GetClipBox(Handle(device), &area) != ERROR) FillWithFace(Handle(device), area);
}

void LockUpdates(NativeWindow window) noexcept {
    if (window != nullptr && LockWindowUpdate(Handle(window))) gLocked = Handle(window);
}

void UnlockUpdates() noexcept {
    // The system itself lifts the lock of a window that goes.
    if (IsWindow(std::exchange(gLocked, nullptr))) LockWindowUpdate(nullptr);
}

NativeIcon CopySystemIcon(std::uint16_t id, std::int32_t width, std::int32_t height) noexcept {
    const HANDLE shared = LoadImageW(nullptr, MAKEINTRESOURCEW(id), IMAGE_ICON, GetSystemMetrics(SM_CXSMICON),
                                     GetSystemMetrics(SM_CYSMICON), LR_SHARED);
    return Opaque(static_cast<HICON>(CopyImage(shared, IMAGE_ICON, width, height, LR_COPYFROMRESOURCE)));
}

void DeleteIcon(NativeIcon icon) noexcept {
    if (icon != nullptr) DestroyIcon(Handle(icon));
}

} // namespace brixen::zeve::platform
