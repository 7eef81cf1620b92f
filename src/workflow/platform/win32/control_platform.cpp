#include "workflow/platform/control_platform.h"

#include "values/unicode/platform/win32/wide.h"
#include "workflow/platform/message_numbers.h"

#include <windows.h>

#include <commctrl.h>
#include <shellapi.h>

namespace brixen::pvn::pvn_workflow::platform {

static_assert(kMessageCreate == WM_CREATE && kMessageSystemColors == WM_SYSCOLORCHANGE);
static_assert(kMessageDestroy == WM_DESTROY && kMessageSize == WM_SIZE &&
              kMessageLosesFocus == WM_KILLFOCUS && kMessageEnable == WM_ENABLE &&
              kMessageSetCursor == WM_SETCURSOR && kMessageGetFont == WM_GETFONT &&
              kMessageNotify == WM_NOTIFY && kMessageDialogCode == WM_GETDLGCODE &&
              kMessageUpdateUiState == WM_UPDATEUISTATE && kMessageQueryUiState == WM_QUERYUISTATE &&
              kMessageLeftButtonUp == WM_LBUTTONUP && kMessageLeftDoubleClick == WM_LBUTTONDBLCLK &&
              kMessageMouseFirst == WM_MOUSEFIRST && kMessageMouseLeave == WM_MOUSELEAVE &&
              kMessagePrintClient == WM_PRINTCLIENT && kButtonClick == BM_CLICK &&
              kTooltipActivate == TTM_ACTIVATE);
// The headers of newer systems count the message of a second wheel, 0x20E, too.
static_assert(kMessageMouseLast == WM_XBUTTONDBLCLK && kMessageMouseLast <= WM_MOUSELAST);
static_assert(kWantsCharacters == DLGC_WANTCHARS && kIsAButton == DLGC_BUTTON &&
              kHidesAccessKeys == UISF_HIDEACCEL && kStaticNotify == SS_NOTIFY &&
              kDefaultPlace == static_cast<std::int32_t>(CW_USEDEFAULT) && kKeySpace == VK_SPACE);
static_assert(kMessageHorizontalScroll == WM_HSCROLL && kMessageSetRedraw == WM_SETREDRAW &&
              kSliderGetPosition == TBM_GETPOS && kSliderSetPosition == TBM_SETPOS &&
              kSliderSetLargest == TBM_SETRANGEMAX && kSliderSetTickDistance == TBM_SETTICFREQ &&
              kSliderSetPage == TBM_SETPAGESIZE && kListAddString == LB_ADDSTRING &&
              kListResetContent == LB_RESETCONTENT && kListSetExtent == LB_SETHORIZONTALEXTENT);
static_assert(kNotificationClick == static_cast<std::int32_t>(NM_CLICK));
static_assert(kSettingText == REG_SZ && kSettingExpandableText == REG_EXPAND_SZ);
static_assert(sizeof(NotificationHeader) == sizeof(NMHDR) &&
              offsetof(NotificationHeader, window) == offsetof(NMHDR, hwndFrom) &&
              offsetof(NotificationHeader, id) == offsetof(NMHDR, idFrom) &&
              offsetof(NotificationHeader, code) == offsetof(NMHDR, code));

namespace {

using lyr::gen::Wide;
using zeve::platform::Rectangle;

constexpr UINT kToolSize = 64; // without the last member, which older systems lack
constexpr UINT_PTR kToolId = 1;
constexpr INT_PTR kShellError = 32; // the shell's results above this are successes

HWND Handle(zeve::NativeWindow window) { return reinterpret_cast<HWND>(window); }

TTTOOLINFOW Tool(zeve::NativeWindow control) {
    TTTOOLINFOW tool{};
    tool.cbSize = kToolSize;
    tool.hwnd = Handle(control);
    tool.uId = kToolId;
    return tool;
}
static_assert(offsetof(TTTOOLINFOW, lParam) + sizeof(LPARAM) == kToolSize);

} // namespace

void SetTooltip(zeve::NativeWindow tooltip, zeve::NativeWindow control, const Rectangle& area,
                const char16_t* text) {
    if (tooltip == nullptr) return;
    TTTOOLINFOW tool = Tool(control);
    zeve::platform::Send(tooltip, TTM_DELTOOLW, 0, reinterpret_cast<std::intptr_t>(&tool));
    tool.rect = {area.left, area.top, area.right, area.bottom};
    tool.lpszText = Wide(const_cast<char16_t*>(text)); // only read
    zeve::platform::Send(tooltip, TTM_ADDTOOLW, 0, reinterpret_cast<std::intptr_t>(&tool));
}

void RelayToTooltip(zeve::NativeWindow tooltip, zeve::NativeWindow control, std::uint32_t message,
                    std::uintptr_t wparam, std::intptr_t lparam) {
    if (tooltip == nullptr) return;
    MSG relayed{};
    relayed.hwnd = Handle(control);
    relayed.message = message;
    relayed.wParam = wparam;
    relayed.lParam = lparam;
    relayed.time = static_cast<DWORD>(GetMessageTime());
    GetCursorPos(&relayed.pt);
    zeve::platform::Send(tooltip, TTM_RELAYEVENT, 0, reinterpret_cast<std::intptr_t>(&relayed));
}

Point MouseIn(zeve::NativeWindow window) noexcept {
    POINT place{};
    GetCursorPos(&place);
    ScreenToClient(Handle(window), &place);
    return {place.x, place.y};
}

zeve::NativeCursor HandCursor() noexcept {
    return reinterpret_cast<zeve::NativeCursor>(
        LoadCursorW(nullptr, reinterpret_cast<const wchar_t*>(IDC_HAND)));
}

void ShowCursor(zeve::NativeCursor cursor) noexcept {
    if (cursor != nullptr) SetCursor(reinterpret_cast<HCURSOR>(cursor));
}

void AskForMouseLeave(zeve::NativeWindow window) noexcept {
    TRACKMOUSEEVENT request{};
    request.cbSize = sizeof request;
    request.dwFlags = TME_LEAVE;
    request.hwndTrack = Handle(window);
    TrackMouseEvent(&request);
}

bool IsHeldKey(std::intptr_t lparam) noexcept {
    return (reinterpret_cast<const MSG*>(lparam)->lParam & kKeyRepeats) != 0;
}

std::optional<UserSetting> ReadUserSetting(const char16_t* key, const char16_t* value) noexcept {
    HKEY opened = nullptr;
    if (RegOpenKeyExW(HKEY_CURRENT_USER, Wide(key), 0, KEY_QUERY_VALUE, &opened) != ERROR_SUCCESS) return {};
    UserSetting setting;
    DWORD type = 0, size = UserSetting::kMostBytes;
    const LONG status = RegQueryValueExW(opened, Wide(value), nullptr, &type,
                                         reinterpret_cast<BYTE*>(setting.bytes.data()), &size);
    RegCloseKey(opened);
    if (status != ERROR_SUCCESS) return {};
    setting.type = type;
    setting.size = size;
    return setting;
}

bool OpenWithShell(const char16_t* target) noexcept {
    const HINSTANCE answer = ShellExecuteW(nullptr, L"open", Wide(target), nullptr, nullptr, SW_SHOWNORMAL);
    return reinterpret_cast<INT_PTR>(answer) > kShellError;
}

} // namespace brixen::pvn::pvn_workflow::platform
