#include "workflow/platform/text_drawing.h"

#include "values/unicode/platform/win32/wide.h"

#include <windows.h>

#include <algorithm>
#include <climits>
#include <iterator>

namespace brixen::pvn::pvn_workflow::platform {

static_assert(kTextCenter == DT_CENTER && kTextRight == DT_RIGHT && kTextBreaksLines == DT_WORDBREAK &&
              kTextMeasure == DT_CALCRECT && kTextShowsAmpersands == DT_NOPREFIX &&
              kTextRightToLeft == DT_RTLREADING && kTextHidesPrefix == DT_HIDEPREFIX);
static_assert(kStockSystemFont == SYSTEM_FONT);

namespace {

using lyr::gen::Wide;
using zeve::platform::FontRecord;
using zeve::platform::Rectangle;

HWND Handle(zeve::NativeWindow window) { return reinterpret_cast<HWND>(window); }
HDC Handle(zeve::NativeDrawing device) { return reinterpret_cast<HDC>(device); }
HFONT Handle(zeve::NativeFont font) { return reinterpret_cast<HFONT>(font); }

RECT Native(const Rectangle& area) { return {area.left, area.top, area.right, area.bottom}; }

// A font on a device for as long as this lives.
class SelectedFont {
public:
    SelectedFont(HDC onDevice, HFONT font)
        : device(onDevice), former(font != nullptr ? SelectObject(onDevice, font) : nullptr) {}
    SelectedFont(const SelectedFont&) = delete;
    SelectedFont& operator=(const SelectedFont&) = delete;
    ~SelectedFont() {
        if (former != nullptr) SelectObject(device, former);
    }

private:
    HDC device;
    HGDIOBJ former;
};

void Draw(HDC device, std::u16string_view text, RECT& area, std::uint32_t format) noexcept {
    const auto units = static_cast<int>(std::min<std::size_t>(text.size(), INT_MAX));
    DrawTextW(device, Wide(text.data()), units, &area, format);
}

} // namespace

std::optional<FontRecord> FontRecordOf(zeve::NativeFont font) noexcept {
    LOGFONTW native{};
    if (font == nullptr || GetObjectW(Handle(font), sizeof native, &native) != sizeof native) return {};
    FontRecord record{native.lfHeight,         native.lfWidth,
                      native.lfEscapement,     native.lfOrientation,
                      native.lfWeight,         native.lfItalic,
                      native.lfUnderline,      native.lfStrikeOut,
                      native.lfCharSet,        native.lfOutPrecision,
                      native.lfClipPrecision,  native.lfQuality,
                      native.lfPitchAndFamily, {}};
    std::copy(std::begin(native.lfFaceName), std::end(native.lfFaceName), std::begin(record.face));
    return record;
}

zeve::NativeFont StockFont(std::int32_t index) noexcept {
    return reinterpret_cast<zeve::NativeFont>(GetStockObject(index));
}

Rectangle MeasureTextIn(zeve::NativeWindow window, zeve::NativeFont font, std::u16string_view text,
                        const Rectangle& area, std::uint32_t format) noexcept {
    RECT measured = {area.left, area.top, area.left, area.top};
    const HDC device = text.empty() || window == nullptr ? nullptr : GetDC(Handle(window));
    if (device != nullptr) {
        const SelectedFont selected(device, Handle(font));
        measured = Native(area);
        Draw(device, text, measured, format | kTextMeasure);
    }
    if (device != nullptr) ReleaseDC(Handle(window), device);
    return {measured.left, measured.top, measured.right, measured.bottom};
}

void DrawTextIn(zeve::NativeDrawing device, std::u16string_view text, const Rectangle& area,
                const TextLook& look) noexcept {
    if (device == nullptr || text.empty()) return;
    const HDC native = Handle(device);
    const SelectedFont selected(native, Handle(look.font));
    const int formerMode = SetBkMode(native, TRANSPARENT);
    const COLORREF formerColor = SetTextColor(native, look.color);
    RECT room = Native(area);
    Draw(native, text, room, look.format);
    SetTextColor(native, formerColor);
    SetBkMode(native, formerMode);
}

Color TextColorOf(zeve::NativeDrawing device) noexcept {
    const COLORREF color = device != nullptr ? GetTextColor(Handle(device)) : CLR_INVALID;
    return color != CLR_INVALID ? color : 0;
}

void DrawFocusFrame(zeve::NativeDrawing device, const Rectangle& area) noexcept {
    if (device == nullptr || area.Width() <= 0 || area.Height() <= 0) return;
    const RECT native = Native(area);
    DrawFocusRect(Handle(device), &native);
}

} // namespace brixen::pvn::pvn_workflow::platform
