#include "workflow/platform/pane_platform.h"

#include "values/unicode/platform/win32/wide.h"
#include "workflow/platform/message_numbers.h"

#include <windows.h>

#include <shellapi.h>

namespace brixen::pvn::pvn_workflow::platform {

static_assert(kMessageFrameButtonDown == WM_NCLBUTTONDOWN && kMessageMouseMove == WM_MOUSEMOVE &&
              kMessageLeftButtonDown == WM_LBUTTONDOWN && kMessageRightButtonDown == WM_RBUTTONDOWN &&
              kMessageMiddleButtonDown == WM_MBUTTONDOWN && kMessageParentNotify == WM_PARENTNOTIFY);
static_assert(kNotificationPressed == BN_CLICKED && kNotificationKey == CBN_SELCHANGE &&
              kNotificationKey == LBN_SELCHANGE && kNotificationPopupHasFocus == CBN_SETFOCUS &&
              kNotificationButtonHasFocus == BN_SETFOCUS && kNotificationButtonLosesFocus == BN_KILLFOCUS);
static_assert(kNotificationEditHasFocus == EN_SETFOCUS && kNotificationEditLosesFocus == EN_KILLFOCUS &&
              kNotificationEditChanged == EN_CHANGE && kNotificationEditChanging == EN_UPDATE);
static_assert(kIdEnter == IDOK && kIdEscape == IDCANCEL && kShowRestored == SW_RESTORE);

namespace {

using lyr::gen::Wide;

// The shell's results above this are successes.
constexpr INT_PTR kShellError = 32;

} // namespace

bool IsHighContrast() noexcept {
    HIGHCONTRASTW contrast{};
    contrast.cbSize = sizeof contrast;
    return SystemParametersInfoW(SPI_GETHIGHCONTRAST, sizeof contrast, &contrast, 0) &&
           (contrast.dwFlags & HCF_HIGHCONTRASTON) != 0;
}

void HideCaret(zeve::NativeWindow edit) noexcept { ::HideCaret(reinterpret_cast<HWND>(edit)); }

bool StartProgram(const char16_t* program, const char16_t* arguments, std::int32_t showCommand) noexcept {
    const HINSTANCE answer =
        ShellExecuteW(nullptr, nullptr, Wide(program), Wide(arguments), nullptr, showCommand);
    return reinterpret_cast<INT_PTR>(answer) > kShellError;
}

} // namespace brixen::pvn::pvn_workflow::platform
