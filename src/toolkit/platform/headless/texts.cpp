#include "toolkit/message_numbers.h"
#include "toolkit/platform/headless/headless.h"

#include <algorithm>

namespace brixen::zeve::platform {

using headless::FindWindow;
using headless::HandleNumber;
using headless::Record;
using headless::State;

namespace {

constexpr std::int32_t kUnitWidth = 6, kLineHeight = 13, kResolution = 96;

Extent ExtentOf(std::size_t units) {
    if (units == 0) return {};
    return {static_cast<std::int32_t>(units) * kUnitWidth, kLineHeight};
}

} // namespace

void SetText(NativeWindow window, const char16_t* text) {
    Record("SetText", window, {}, text);
    const headless::Message message{window, kMessageSetText, 0, reinterpret_cast<std::intptr_t>(text)};
    const headless::Window* found = FindWindow(window);
    if (found != nullptr && found->layer != nullptr) {
        headless::Deliver(message);
    } else {
        headless::SystemAnswer(message);
    }
}

std::u16string TextOf(NativeWindow window) {
    Record("TextOf", window);
    const headless::Window* found = FindWindow(window);
    return found != nullptr ? found->text : std::u16string();
}

void SetControlText(NativeWindow window, std::uint16_t id, const char16_t* text) {
    Record("SetControlText", window, {id}, text);
    SetText(ChildWithId(window, id), text);
}

std::u16string ControlText(NativeWindow window, std::uint16_t id) {
    Record("ControlText", window, {id});
    return TextOf(ChildWithId(window, id));
}

FontRecord StockSystemFont() noexcept {
    Record("StockSystemFont");
    return State().stockFont;
}

NativeFont MakeFont(const FontRecord& record) noexcept {
    Record("MakeFont", nullptr,
           {record.height, record.weight, record.italic, record.underline, record.characterSet}, record.face);
    if (headless::Refuses(State().refuseFont)) return nullptr;
    try {
        return State().fonts.emplace(headless::NewHandle<NativeFont>(), record).first->first;
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}

void DeleteFont(NativeFont font) noexcept {
    Record("DeleteFont", nullptr, {HandleNumber(font)});
    State().fonts.erase(font);
}

std::int32_t ScreenResolution() noexcept {
    Record("ScreenResolution");
    return kResolution;
}

std::int32_t WindowResolution(NativeWindow window) noexcept {
    Record("WindowResolution", window);
    return FindWindow(window) != nullptr ? kResolution : 0;
}

TextMeter::TextMeter(NativeFont itsFont) noexcept
    : font(itsFont), device(headless::NewHandle<NativeDrawing>()) {
    Record("TakeScreen", nullptr, {HandleNumber(device)});
}

TextMeter::~TextMeter() { Record("LeaveScreen", nullptr, {HandleNumber(device)}); }

Extent TextMeter::MeasureText(std::u16string_view text) const noexcept {
    Record("MeasureText", nullptr, {HandleNumber(font)}, text);
    return ExtentOf(text.size());
}

std::int32_t TextMeter::MeasureBeginnings(std::u16string_view text, std::int32_t* widths) const noexcept {
    Record("MeasureBeginnings", nullptr, {HandleNumber(font)}, text);
    for (std::size_t n = 0; n < text.size(); ++n) widths[n] = ExtentOf(n + 1).width;
    return ExtentOf(text.size()).height;
}

} // namespace brixen::zeve::platform
