#include "toolkit/platform/toolkit_platform.h"
#include "toolkit/platform/win32/handles.h"

#include <imm.h>

namespace brixen::zeve::platform {

namespace {

// The device that a window paints on, for as long as this lives.
class Painting {
public:
    explicit Painting(HWND window) : fWindow(window), fDevice(BeginPaint(window, &fArea)) {}
    Painting(const Painting&) = delete;
    Painting& operator=(const Painting&) = delete;
    ~Painting() {
        if (fDevice != nullptr) EndPaint(fWindow, &fArea);
    }
    HDC Device() const { return fDevice; }
    const RECT& Area() const { return fArea.rcPaint; }

private:
    HWND fWindow;
    PAINTSTRUCT fArea = {};
    HDC fDevice;
};

class InputContext {
public:
    explicit InputContext(HWND window) : fWindow(window), fContext(ImmGetContext(window)) {}
    InputContext(const InputContext&) = delete;
    InputContext& operator=(const InputContext&) = delete;
    ~InputContext() {
        if (fContext != nullptr) ImmReleaseContext(fWindow, fContext);
    }
    HIMC Get() const { return fContext; }

private:
    HWND fWindow;
    HIMC fContext;
};

void FillWithFace(HDC device, const RECT& area) { FillRect(device, &area, GetSysColorBrush(COLOR_BTNFACE)); }

} // namespace

void TrimSystemMenu(NativeWindow window) noexcept {
    const HMENU menu = GetSystemMenu(Handle(window), FALSE);
    for (int i = GetMenuItemCount(menu) - 1; i >= 0; --i) {
        const UINT id = GetMenuItemID(menu, i);
        if (id != SC_MOVE && id != SC_CLOSE) DeleteMenu(menu, static_cast<UINT>(i), MF_BYPOSITION);
    }
}

void GreyCloseItem(NativeWindow window) noexcept {
    EnableMenuItem(GetSystemMenu(Handle(window), FALSE), SC_CLOSE, MF_BYCOMMAND | MF_GRAYED);
}

void SetInputMethodOpen(NativeWindow window, bool open) noexcept {
    const InputContext context(Handle(window));
    if (context.Get() != nullptr) ImmSetOpenStatus(context.Get(), open);
}

void Invalidate(NativeWindow window) noexcept {
    // A null window would stand for all windows of the system.
    if (window != nullptr) InvalidateRect(Handle(window), nullptr, TRUE);
}

void PaintFace(NativeWindow window) noexcept {
    const Painting painting(Handle(window));
    if (painting.Device() != nullptr) FillWithFace(painting.Device(), painting.Area());
}

void EraseFace(NativeWindow, NativeDrawing device) noexcept {
    RECT area = {};
    if (GetClipBox(Handle(device), &area) != ERROR) FillWithFace(Handle(device), area);
}

void LockUpdates(NativeWindow window) noexcept { LockWindowUpdate(Handle(window)); }

void UnlockUpdates() noexcept { LockWindowUpdate(nullptr); }

NativeIcon CopySystemIcon(std::uint16_t id, std::int32_t width, std::int32_t height) noexcept {
    const HANDLE shared = LoadImageW(nullptr, MAKEINTRESOURCEW(id), IMAGE_ICON, GetSystemMetrics(SM_CXSMICON),
                                     GetSystemMetrics(SM_CYSMICON), LR_SHARED);
    return Opaque(static_cast<HICON>(CopyImage(shared, IMAGE_ICON, width, height, LR_COPYFROMRESOURCE)));
}

void DeleteIcon(NativeIcon icon) noexcept {
    if (icon != nullptr) DestroyIcon(Handle(icon));
}

void ShowErrorMessage(NativeWindow owner, const char16_t* text) noexcept {
    MessageBoxW(Handle(owner), Wide(text), L"", MB_ICONHAND);
}

} // namespace brixen::zeve::platform
