// Where the parts of a range gauge are, and how far it is filled. All numbers are pixels of the client area.
#pragma once

#include "workflow/platform/painting.h"

#include <cstdint>
#include <optional>

namespace brixen::pvn::pvn_workflow {

// Colors of the used part, by how much of the range is used.
inline constexpr platform::Color kGaugeFree = 1440533;    // below 50 percent
inline constexpr platform::Color kGaugeFilling = 1440763; // 50 to 80 percent
inline constexpr platform::Color kGaugeFull = 1381883;    // above 80 percent

struct GaugeValues {
    std::int32_t start = 0, end = 0; // of the range, each 0 to 65535, in any order
    std::int32_t position = 0;       // not negative
    std::uint32_t captionShift = 0;  // percent
};

// Returns how much of the range is used, rounded down, 100 for a position beyond the end; nothing for a range
// without length.
std::optional<std::int64_t> UsedPercent(const GaugeValues& values);

struct GaugeGeometry {
    zeve::platform::Rectangle bar;                // with its frame of one pixel
    zeve::platform::Rectangle startTick, endTick; // one pixel wide
    std::int32_t endTextLeft = 0;                 // the text of the start is at the left edge
    // The filled areas up to the position and after it; empty where nothing is filled.
    zeve::platform::Rectangle before, after;
    platform::Color afterColor = 0;
};

// Lays a gauge out in a client area; `digitWidth` is the width of "0" in the gauge's font.
//
// A position outside the range counts as its end. Intentional: at 100 percent the second area begins 3 pixels
// further to the left; the one column that is left of it is inside the frame.
GaugeGeometry LayOutGauge(const zeve::platform::Rectangle& client, std::int32_t digitWidth,
                          const GaugeValues& values);

} // namespace brixen::pvn::pvn_workflow
