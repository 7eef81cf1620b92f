#include "workflow/controls/gauge_geometry.h"

#include <algorithm>
#include <cstdlib>

namespace brixen::pvn::pvn_workflow {

namespace {

using zeve::platform::Rectangle;

constexpr std::int32_t kBarTop = 19, kBarBottom = 1; // from the edges of the client area
constexpr std::int32_t kTickTop = 14, kTickHeight = 3;
constexpr std::int32_t kInset = 2; // of the filled areas in the bar
constexpr std::int32_t kFullShift = 3;
constexpr std::int64_t kFullPercent = 100, kMuchPercent = 80, kHalfPercent = 50;

// How far from the right edge the text of the end begins.
std::int32_t ShiftOf(std::int32_t width, std::uint32_t percent) {
    constexpr std::int64_t kOtherPercent = 76; // leaves 0.24 of the width
    const std::int64_t used = percent >= 1 && percent <= 100 ? percent : kOtherPercent;
    return static_cast<std::int32_t>(width * (100 - used) / 100);
}

platform::Color ColorOf(std::int64_t usedPercent) {
    if (usedPercent > kMuchPercent) return kGaugeFull;
    return usedPercent >= kHalfPercent ? kGaugeFilling : kGaugeFree;
}

// Kept: edges that cross fill what lies between them, as the system does.
Rectangle Filled(const Rectangle& bar, std::int32_t edge, std::int32_t otherEdge) {
    const Rectangle area{std::min(edge, otherEdge), bar.top + kInset, std::max(edge, otherEdge),
                         bar.bottom - kInset};
    return area.Width() > 0 && area.Height() > 0 ? area : Rectangle{};
}

void Fill(GaugeGeometry& gauge, const GaugeValues& values) {
    const std::int64_t length = std::abs(std::int64_t{values.end} - values.start);
    const std::int64_t width = gauge.bar.Width();
    if (length == 0 || width <= 0) return;
    const std::int64_t way = std::min(std::abs(std::int64_t{values.position} - values.start), length);
    auto split = gauge.bar.left + static_cast<std::int32_t>(way * width / length);
    gauge.before = Filled(gauge.bar, gauge.bar.left + kInset, split);
    const std::int64_t usedPercent = UsedPercent(values).value_or(0);
    if (usedPercent == kFullPercent) split -= kFullShift;
    gauge.after = Filled(gauge.bar, split + kInset, gauge.bar.right - kInset);
    gauge.afterColor = ColorOf(usedPercent);
}

} // namespace

std::optional<std::int64_t> UsedPercent(const GaugeValues& values) {
    if (values.end == values.start) return {};
    const std::int64_t length = std::abs(std::int64_t{values.end} - values.start);
    return std::min(std::abs(std::int64_t{values.position} - values.start), length) * kFullPercent / length;
}

GaugeGeometry LayOutGauge(const Rectangle& client, std::int32_t digitWidth, const GaugeValues& values) {
    const std::int32_t shift = ShiftOf(client.Width(), values.captionShift);
    GaugeGeometry gauge;
    gauge.bar = {client.left + digitWidth, client.top + kBarTop, client.right - digitWidth / 2 - shift,
                 client.bottom - kBarBottom};
    const std::int32_t tickTop = client.top + kTickTop;
    gauge.startTick = {gauge.bar.left, tickTop, gauge.bar.left + 1, tickTop + kTickHeight};
    gauge.endTick = {gauge.bar.right - 1, tickTop, gauge.bar.right, tickTop + kTickHeight};
    gauge.endTextLeft = client.right - shift;
    Fill(gauge, values);
    return gauge;
}

} // namespace brixen::pvn::pvn_workflow
