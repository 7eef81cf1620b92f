#include "toolkit/platform/toolkit_platform.h"
#include "toolkit/platform/win32/foreign_procedures.h"
#include "toolkit/platform/win32/handles.h"
#include "toolkit/platform/win32/isolation.h"
#include "toolkit/platform/win32/procedures.h"
#include "values/unicode/text_conversion.h"

#include <cstdio>

#include <commctrl.h>
#include <imm.h>
#include <objbase.h>

namespace brixen::zeve::platform {

namespace {

constexpr UINT kDialogClassStyle = CS_VREDRAW | CS_HREDRAW;
constexpr std::size_t kUniqueNameUnits = 64;

Rectangle FromSystem(const RECT& area) { return {area.left, area.top, area.right, area.bottom}; }

class InputContext {
public:
    explicit InputContext(HWND ofWindow) : window(ofWindow), context(ImmGetContext(ofWindow)) {}
    InputContext(const InputContext&) = delete;
    InputContext& operator=(const InputContext&) = delete;
    ~InputContext() {
        if (context != nullptr) ImmReleaseContext(window, context);
    }
    HIMC Get() const { return context; }

private:
    HWND window;
    HIMC context;
};

} // namespace

NativeWindow MakeWindow(const WindowRequest& request) {
    return Opaque(IsolatedCall([&request] {
        return CreateWindowExW(
            request.extendedStyle, Wide(request.className), Wide(request.text), request.style, request.left,
            request.top, request.width, request.height, Handle(request.parent),
            reinterpret_cast<HMENU>(static_cast<UINT_PTR>(request.id)), Handle(request.instance), nullptr);
    }));
}

bool RegisterDialogClass(const char16_t* className, NativeModule instance) noexcept {
    WNDCLASSW description = {};
    description.style = kDialogClassStyle;
    description.lpfnWndProc = DialogTrampoline;
    description.hInstance = Handle(instance);
    description.hCursor = LoadCursorW(nullptr, reinterpret_cast<const wchar_t*>(IDC_ARROW));
    description.hbrBackground = reinterpret_cast<HBRUSH>(static_cast<UINT_PTR>(COLOR_BTNFACE + 1));
    description.lpszClassName = Wide(className);
    return IsolatedCall([&description] { return RegisterClassW(&description); }) != 0;
}

void UnregisterDialogClass(const char16_t* className, NativeModule instance) noexcept {
    UnregisterClassW(Wide(className), Handle(instance));
}

std::u16string NewUniqueName() {
    GUID id = {};
    CoCreateGuid(&id);
    const unsigned char* tail = id.Data4;
    char text[kUniqueNameUnits];
    const int length = std::snprintf(text, sizeof text, "%08x-%04x-%04x-%02x%02x-%02x%02x%02x%02x%02x%02x",
                                     static_cast<unsigned>(id.Data1), id.Data2, id.Data3, tail[0], tail[1],
                                     tail[2], tail[3], tail[4], tail[5], tail[6], tail[7]);
    return {text, text + length};
}

void CloseWindow(NativeWindow window) noexcept {
    if (window == nullptr) return;
    try {
        CallingProcedures([=] { return DestroyWindow(Handle(window)); });
    } catch (const std::exception&) {
        // The window is gone all the same, and destructors of boxes call this.
    }
}

bool IsWindowAlive(NativeWindow window) noexcept { return IsWindow(Handle(window)) != FALSE; }

void ShowOrHide(NativeWindow window, bool show) { ShowWindow(Handle(window), show ? SW_SHOW : SW_HIDE); }

bool IsShown(NativeWindow window) noexcept { return IsWindowVisible(Handle(window)) != FALSE; }

void PaintNow(NativeWindow window) { UpdateWindow(Handle(window)); }

void Enable(NativeWindow window, bool enabled) { EnableWindow(Handle(window), enabled); }

bool IsEnabled(NativeWindow window) noexcept { return IsWindowEnabled(Handle(window)) != FALSE; }

void Focus(NativeWindow window) {
    // A null window would remove the focus.
    if (window != nullptr) SetFocus(Handle(window));
}

void Activate(NativeWindow window) { SetActiveWindow(Handle(window)); }

void MoveTo(NativeWindow window, std::int32_t left, std::int32_t top, std::int32_t width,
            std::int32_t height) {
    MoveWindow(Handle(window), left, top, width, height, TRUE);
}

Rectangle OuterFrame(NativeWindow window) noexcept {
    RECT area = {};
    GetWindowRect(Handle(window), &area);
    return FromSystem(area);
}

Rectangle ClientArea(NativeWindow window) noexcept {
    RECT area = {};
    GetClientRect(Handle(window), &area);
    return FromSystem(area);
}

Rectangle FrameInParent(NativeWindow window) noexcept {
    RECT area = {};
    GetWindowRect(Handle(window), &area);
    // Both corners at once, so that left stays left in a mirrored parent.
    MapWindowPoints(nullptr, GetParent(Handle(window)), reinterpret_cast<POINT*>(&area), 2);
    return FromSystem(area);
}

Extent WorkArea() noexcept { return {GetSystemMetrics(SM_CXFULLSCREEN), GetSystemMetrics(SM_CYFULLSCREEN)}; }

NativeWindow ParentOf(NativeWindow window) noexcept { return Opaque(GetParent(Handle(window))); }

NativeWindow TopLevelOf(NativeWindow window) noexcept { return Opaque(GetAncestor(Handle(window), GA_ROOT)); }

NativeWindow OwnerOfDialog(NativeWindow parent) noexcept {
    const HWND root = IsWindow(Handle(parent)) ? GetAncestor(Handle(parent), GA_ROOT) : nullptr;
    return root != GetDesktopWindow() ? Opaque(root) : nullptr;
}

NativeWindow ChildWithId(NativeWindow window, std::uint16_t id) noexcept {
    return Opaque(GetDlgItem(Handle(window), id));
}

NativeWindow TopChild(NativeWindow window) noexcept {
    // To the system a null window means the desktop.
    return window != nullptr ? Opaque(GetTopWindow(Handle(window))) : nullptr;
}

NativeWindow NextSibling(NativeWindow window) noexcept {
    return Opaque(GetWindow(Handle(window), GW_HWNDNEXT));
}

NativeWindow PreviousSibling(NativeWindow window) noexcept {
    return Opaque(GetWindow(Handle(window), GW_HWNDPREV));
}

void PutBefore(NativeWindow window, NativeWindow sibling) {
    const NativeWindow before = PreviousSibling(sibling);
    if (window == nullptr || sibling == nullptr || before == window) return;
    SetWindowPos(Handle(window), before != nullptr ? Handle(before) : HWND_TOP, 0, 0, 0, 0,
                 SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE | SWP_NOOWNERZORDER);
}

NativeWindow ChildOfClassAndStyle(NativeWindow window, const char16_t* className,
                                  std::uint32_t style) noexcept {
    if (window == nullptr) return nullptr;
    HWND child = GetTopWindow(Handle(window));
    while (child != nullptr && !(StyleOf(Opaque(child)) == style && IsOfClass(Opaque(child), className)))
        child = GetWindow(child, GW_HWNDNEXT);
    return Opaque(child);
}

bool IsOfClass(NativeWindow window, const char16_t* className) noexcept {
    wchar_t name[256] = {}; // the system's limit
    GetClassNameW(Handle(window), name, 256);
    return lstrcmpiW(name, Wide(className)) == 0;
}

std::uint16_t IdOf(NativeWindow window) noexcept {
    return static_cast<std::uint16_t>(GetDlgCtrlID(Handle(window)));
}

std::uint32_t StyleOf(NativeWindow window) noexcept {
    return static_cast<std::uint32_t>(GetWindowLongW(Handle(window), GWL_STYLE));
}

std::uint32_t ExtendedStyleOf(NativeWindow window) noexcept {
    return static_cast<std::uint32_t>(GetWindowLongW(Handle(window), GWL_EXSTYLE));
}

void SetStyle(NativeWindow window, std::uint32_t style) {
    SetWindowLongW(Handle(window), GWL_STYLE, static_cast<LONG>(style));
}

void InsertTab(NativeWindow window, std::int32_t index, const char16_t* text) {
    if (window == nullptr) return;
    TCITEMW item = {};
    item.mask = TCIF_TEXT | TCIF_IMAGE;
    item.pszText = Wide(const_cast<char16_t*>(text)); // only read
    item.iImage = -1;
    Send(window, TCM_INSERTITEMW, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&item));
}

void TrimSystemMenu(NativeWindow window) noexcept {
    const HMENU menu = GetSystemMenu(Handle(window), FALSE);
    for (int i = GetMenuItemCount(menu) - 1; i >= 0; --i) {
        const UINT id = GetMenuItemID(menu, i);
        if (id != SC_MOVE && id != SC_CLOSE) DeleteMenu(menu, static_cast<UINT>(i), MF_BYPOSITION);
    }
}

void GrayCloseItem(NativeWindow window) noexcept {
    EnableMenuItem(GetSystemMenu(Handle(window), FALSE), SC_CLOSE, MF_BYCOMMAND | MF_GRAYED);
}

void SetInputMethodOpen(NativeWindow window, bool open) {
    const InputContext context(Handle(window));
    if (context.Get() != nullptr) ImmSetOpenStatus(context.Get(), open);
}

void ShowErrorMessage(NativeWindow owner, const char16_t* text) {
    MessageBoxW(Handle(owner), Wide(text), L"", MB_ICONHAND);
}

std::string DecimalSign() {
    constexpr int kSignSize = 4; // UTF-16 units, with the terminator
    char16_t sign[kSignSize] = {};
    if (GetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SDECIMAL, Wide(sign), kSignSize) <= 1) return ".";
    return lyr::gen::ToUtf8(sign, true);
}

} // namespace brixen::zeve::platform
