#include "workflow/controls/my_prog_bar.h"

#include "toolkit/control_styles.h"
#include "toolkit/dialog/procedure_boundary.h"
#include "toolkit/message_numbers.h"
#include "workflow/controls/gauge_geometry.h"
#include "workflow/controls/parent_background.h"
#include "workflow/platform/accessible.h"
#include "workflow/platform/control_class.h"
#include "workflow/platform/message_numbers.h"
#include "workflow/platform/painting.h"
#include "workflow/platform/text_drawing.h"

#include <algorithm>
#include <string>

namespace brixen::pvn::pvn_workflow {

namespace {

using zeve::platform::Rectangle;

constexpr platform::Color kInk = 0xA3A3A3; // of texts, ticks and frame
constexpr platform::Color kUsed = 0xD7D7D7;

// The memory of a gauge's window and what is stored there.
constexpr std::int32_t kWindowBytes = 32;
constexpr std::int32_t kFirstOffset = 16, kSecondOffset = 24;
constexpr std::intptr_t kFirstNumber = 0x1E0000, kSecondNumber = 10;

constexpr zeve::platform::FontRecord kFont{.height = 13, .weight = 400, .quality = 2, .face = u"Tahoma"};

class OwnedFont {
public:
    explicit OwnedFont(const zeve::platform::FontRecord& record) : font(zeve::platform::MakeFont(record)) {}
    OwnedFont(const OwnedFont&) = delete;
    OwnedFont& operator=(const OwnedFont&) = delete;
    ~OwnedFont() { zeve::platform::DeleteFont(font); }
    zeve::NativeFont Get() const { return font; }

private:
    zeve::NativeFont font;
};

std::u16string Decimal(std::int32_t number) {
    const std::string digits = std::to_string(number);
    return {digits.begin(), digits.end()};
}

std::u16string EndText(std::int32_t end) {
    const char16_t* caption = TheGaugeData().caption;
    return *caption ? Decimal(end) + u' ' + caption : Decimal(end);
}

// The range counts as a signed number.
bool IsShown(const GaugeData& data) {
    return static_cast<std::int32_t>(data.range) >= 0 && data.position >= 0;
}

void DrawFrame(zeve::NativeDrawing device, const Rectangle& area) {
    platform::FillArea(device, {area.left, area.top, area.right, area.top + 1}, kInk);
    platform::FillArea(device, {area.left, area.bottom - 1, area.right, area.bottom}, kInk);
    platform::FillArea(device, {area.left, area.top, area.left + 1, area.bottom}, kInk);
    platform::FillArea(device, {area.right - 1, area.top, area.right, area.bottom}, kInk);
}

void DrawBar(zeve::NativeDrawing device, const GaugeGeometry& gauge) {
    platform::FillArea(device, gauge.startTick, kInk);
    platform::FillArea(device, gauge.endTick, kInk);
    DrawFrame(device, gauge.bar);
    platform::FillArea(device, gauge.before, kUsed);
    platform::FillArea(device, gauge.after, gauge.afterColor);
}

GaugeValues ValuesOf(const GaugeData& data) {
    return {static_cast<std::int32_t>(data.range >> 16), static_cast<std::int32_t>(data.range & 0xFFFF),
            data.position, data.captionShift};
}

void DrawGauge(zeve::NativeDrawing device, const Rectangle& client) {
    const GaugeValues values = ValuesOf(TheGaugeData());
    const OwnedFont font(kFont);
    const std::int32_t digitWidth = zeve::platform::TextMeter(font.Get()).MeasureText(u"0").width;
    const GaugeGeometry gauge = LayOutGauge(client, digitWidth, values);
    const platform::TextLook look{font.Get(), kInk, platform::kTextShowsAmpersands};
    platform::DrawTextIn(device, Decimal(values.start), client, look);
    platform::DrawTextIn(device, EndText(values.end),
                         {gauge.endTextLeft, client.top, client.right, client.bottom}, look);
    DrawBar(device, gauge);
}

void Paint(zeve::NativeWindow window, const platform::Painting& painting) {
    FillAsParent(painting.Device(), painting.Area(), window);
    if (IsShown(TheGaugeData())) DrawGauge(painting.Device(), painting.Area());
}

// What a screen reader learns: a progress bar whose value is the used part of the range.
class SpokenGauge final : public platform::AccessibleControl {
public:
    std::int32_t AccessibleRole() const override { return platform::kRoleProgressBar; }
    std::u16string AccessibleValue() const override {
        const GaugeData& data = TheGaugeData();
        const auto percent = IsShown(data) ? UsedPercent(ValuesOf(data)) : std::nullopt;
        if (!percent) return {};
        return Decimal(static_cast<std::int32_t>(std::min(*percent, kAll))) + u'%';
    }
    std::uint32_t AccessibleState() const override { return platform::kStateReadOnly; }

    platform::AccessibleConnection connection{*this};

private:
    static constexpr std::int64_t kAll = 100;
};

SpokenGauge& TheSpokenGauge() {
    static SpokenGauge gauge;
    return gauge;
}

void ShowChange(zeve::NativeWindow window) {
    zeve::platform::Invalidate(window);
    platform::Announce(window, platform::AccessibleChange::kValue);
}

std::intptr_t Answer(zeve::NativeWindow window, std::uint32_t message, std::uintptr_t wparam,
                     std::intptr_t lparam) {
    switch (message) {
    case kMessageCreate:
        platform::StoreInWindow(window, kFirstOffset, kFirstNumber);
        platform::StoreInWindow(window, kSecondOffset, kSecondNumber);
        break;
    case zeve::kMessagePaint: Paint(window, platform::Painting(window)); return 0;
    case kMessagePrintClient:
        Paint(window, platform::Painting(window, reinterpret_cast<zeve::NativeDrawing>(wparam)));
        return 0;
    case zeve::kMessageEraseBackground: return 1;
    case kGaugeSetRange:
        TheGaugeData().range = static_cast<std::uint32_t>(lparam);
        ShowChange(window);
        return 0;
    case kGaugeSetPosition:
        TheGaugeData().position = static_cast<std::int32_t>(lparam);
        ShowChange(window);
        return 0;
    case platform::kMessageGetObject:
        if (const auto object = TheSpokenGauge().connection.Answer(window, wparam, lparam)) return *object;
        break;
    case zeve::kMessageWindowGone: TheSpokenGauge().connection.Cut(); break;
    default: break;
    }
    return zeve::platform::DefaultAnswer(window, message, wparam, lparam);
}

std::intptr_t GaugeProcedure(zeve::NativeWindow window, std::uint32_t message, std::uintptr_t wparam,
                             std::intptr_t lparam) noexcept {
    return zeve::KeepingExceptions(window, message, wparam, lparam, Answer);
}

} // namespace

GaugeData& TheGaugeData() noexcept {
    static constinit GaugeData data;
    return data;
}

zeve::NativeWindow MakeGauge(zeve::NativeWindow dialog, std::uint16_t id, const Rectangle& place) {
    const platform::ControlClass gauge{kMyProgBarClass, platform::kRedrawsWhenResized, kWindowBytes,
                                       &GaugeProcedure};
    if (!platform::RegisterControlClass(gauge)) return nullptr;
    return zeve::platform::MakeWindow({.className = kMyProgBarClass,
                                       .style = zeve::style::kChild | zeve::style::kVisible,
                                       .left = place.left,
                                       .top = place.top,
                                       .width = place.Width(),
                                       .height = place.Height(),
                                       .parent = dialog,
                                       .id = id,
                                       .instance = zeve::platform::LibraryModule()});
}

void SetGaugeCaption(const GaugeCaption& record) noexcept {
    std::copy_n(record.text, GaugeCaption::kCopiedUnits, TheGaugeData().caption);
    TheGaugeData().captionShift = record.percent;
}

} // namespace brixen::pvn::pvn_workflow
