#include "workflow/platform/text_drawing.h"

#include "toolkit/platform/headless/headless.h"
#include "workflow/platform/headless/text_recorder.h"

#include <new>

namespace brixen::pvn::pvn_workflow::platform {

namespace {

using zeve::platform::FontRecord;
using zeve::platform::Rectangle;

constexpr std::int32_t kUnitWidth = 6, kLineHeight = 13;
const auto kStockFont = reinterpret_cast<zeve::NativeFont>(std::uintptr_t(0x700));

} // namespace

TextRecorder& TheTextRecorder() {
    static TextRecorder recorder;
    return recorder;
}

std::optional<FontRecord> FontRecordOf(zeve::NativeFont font) noexcept {
    if (font == kStockFont) return zeve::headless::State().stockFont;
    const auto found = zeve::headless::State().fonts.find(font);
    if (found == zeve::headless::State().fonts.end()) return {};
    return found->second;
}

zeve::NativeFont StockFont(std::int32_t) noexcept { return kStockFont; }

Rectangle MeasureTextIn(zeve::NativeWindow window, zeve::NativeFont, std::u16string_view text,
                        const Rectangle& area, std::uint32_t format) noexcept {
    if (text.empty() || zeve::headless::FindWindow(window) == nullptr) {
        return {area.left, area.top, area.left, area.top};
    }
    try {
        TheTextRecorder().measuredFormats.push_back(format | kTextMeasure);
    } catch (const std::bad_alloc&) {
        // A test that lets memory run out reads no formats.
    }
    const auto width = static_cast<std::int32_t>(text.size()) * kUnitWidth;
    return {area.left, area.top, area.left + width, area.top + kLineHeight};
}

void DrawTextIn(zeve::NativeDrawing device, std::u16string_view text, const Rectangle& area,
                const TextLook& look) noexcept {
    if (device == nullptr || text.empty()) return;
    try {
        TheTextRecorder().texts.push_back({device, std::u16string(text), area, look});
    } catch (const std::bad_alloc&) {
        // A test that lets memory run out reads no texts.
    }
}

Color TextColorOf(zeve::NativeDrawing device) noexcept {
    return device != nullptr ? TheTextRecorder().textColor : 0;
}

void DrawFocusFrame(zeve::NativeDrawing device, const Rectangle& area) noexcept {
    if (device == nullptr || area.Width() <= 0 || area.Height() <= 0) return;
    try {
        TheTextRecorder().focusFrames.push_back(area);
    } catch (const std::bad_alloc&) {
        // A test that lets memory run out reads no frames.
    }
}

} // namespace brixen::pvn::pvn_workflow::platform
