#include "toolkit/platform/toolkit_platform.h"
#include "toolkit/platform/win32/foreign_procedures.h"
#include "toolkit/platform/win32/handles.h"

#include <algorithm>
#include <climits>

namespace brixen::zeve::platform {

namespace {

int Count(std::u16string_view text) { return static_cast<int>(std::min<std::size_t>(text.size(), INT_MAX)); }

LOGFONTW ToSystem(const FontRecord& record) {
    LOGFONTW font = {};
    font.lfHeight = record.height;
    font.lfWidth = record.width;
    font.lfEscapement = record.escapement;
    font.lfOrientation = record.orientation;
    font.lfWeight = record.weight;
    font.lfItalic = record.italic;
    font.lfUnderline = record.underline;
    font.lfStrikeOut = record.strikeOut;
    font.lfCharSet = record.characterSet;
    font.lfOutPrecision = record.outputPrecision;
    font.lfClipPrecision = record.clippingPrecision;
    font.lfQuality = record.quality;
    font.lfPitchAndFamily = record.pitchAndFamily;
    std::copy_n(record.face, kFaceUnits - 1, font.lfFaceName);
    return font;
}

FontRecord FromSystem(const LOGFONTW& font) {
    FontRecord record;
    record.height = font.lfHeight;
    record.width = font.lfWidth;
    record.escapement = font.lfEscapement;
    record.orientation = font.lfOrientation;
    record.weight = font.lfWeight;
    record.italic = font.lfItalic;
    record.underline = font.lfUnderline;
    record.strikeOut = font.lfStrikeOut;
    record.characterSet = font.lfCharSet;
    record.outputPrecision = font.lfOutPrecision;
    record.clippingPrecision = font.lfClipPrecision;
    record.quality = font.lfQuality;
    record.pitchAndFamily = font.lfPitchAndFamily;
    std::copy_n(font.lfFaceName, kFaceUnits - 1, record.face);
    return record;
}

} // namespace

void SetText(NativeWindow window, const char16_t* text) {
    CallingProcedures([=] { return SetWindowTextW(Handle(window), Wide(text)); });
}

std::u16string TextOf(NativeWindow window) {
    const int length = CallingProcedures([=] { return GetWindowTextLengthW(Handle(window)); });
    if (length <= 0) return {};
    std::u16string text(static_cast<std::size_t>(length), u'\0');
    const int got =
        CallingProcedures([&] { return GetWindowTextW(Handle(window), Wide(text.data()), length + 1); });
    text.resize(static_cast<std::size_t>(std::max(got, 0)));
    return text;
}

void SetControlText(NativeWindow window, std::uint16_t id, const char16_t* text) {
    CallingProcedures([=] { return SetDlgItemTextW(Handle(window), id, Wide(text)); });
}

std::u16string ControlText(NativeWindow window, std::uint16_t id) { return TextOf(ChildWithId(window, id)); }

FontRecord StockSystemFont() noexcept {
    LOGFONTW font = {};
    GetObjectW(GetStockObject(SYSTEM_FONT), sizeof font, &font);
    return FromSystem(font);
}

NativeFont MakeFont(const FontRecord& record) noexcept {
    const LOGFONTW font = ToSystem(record);
    return Opaque(CreateFontIndirectW(&font));
}

void DeleteFont(NativeFont font) noexcept {
    if (font != nullptr) DeleteObject(Handle(font));
}

std::int32_t ScreenResolution() noexcept { return GetDeviceCaps(BorrowedDevice(nullptr).Get(), LOGPIXELSY); }

std::int32_t WindowResolution(NativeWindow window) noexcept {
    // A null window's device would be the screen's.
    if (window == nullptr) return 0;
    return GetDeviceCaps(BorrowedDevice(Handle(window)).Get(), LOGPIXELSY);
}

TextMeter::TextMeter(NativeFont itsFont) noexcept
    : font(itsFont), device(Opaque(GetDC(nullptr))),
      former(Opaque(static_cast<HFONT>(SelectObject(Handle(device), Handle(font))))) {}

TextMeter::~TextMeter() {
    if (former != nullptr) SelectObject(Handle(device), Handle(former));
    if (device != nullptr) ReleaseDC(nullptr, Handle(device));
}

Extent TextMeter::MeasureText(std::u16string_view text) const noexcept {
    SIZE size = {};
    if (!text.empty()) GetTextExtentPoint32W(Handle(device), Wide(text.data()), Count(text), &size);
    return {size.cx, size.cy};
}

std::int32_t TextMeter::MeasureBeginnings(std::u16string_view text, std::int32_t* widths) const noexcept {
    SIZE size = {};
    if (text.empty()) return 0;
    // Without a place for the number of units that fit, the system gives the widths of all.
    const BOOL isMeasured =
        GetTextExtentExPointW(Handle(device), Wide(text.data()), Count(text), 0, nullptr, widths, &size);
    return isMeasured ? size.cy : 0;
}

} // namespace brixen::zeve::platform
