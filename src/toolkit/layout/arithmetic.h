// Shared by the passes of the layout: sums of pixels in 64 bits and their way back into 32.
#pragma once

#include "toolkit/layout/view_proxy.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>

namespace brixen::zeve {

// A sum of 32-bit lengths. Neither the number of views nor their sizes can make it overflow.
using PixelSum = std::int64_t;

// The low 32 bits.
inline std::int32_t Cut(PixelSum sum) { return static_cast<std::int32_t>(sum); }

inline void Raise(std::int32_t& field, PixelSum atLeast) { field = Cut(std::max<PixelSum>(field, atLeast)); }

// All gaps between the children of `view`; none with fewer than two.
inline PixelSum Gaps(const ViewProxy& view) {
    return (static_cast<PixelSum>(view.children.size()) - 1) * view.spacing;
}

// Whether a row lets this first child's label join a label column.
inline bool JoinsLabelColumn(const ViewProxy& firstChild) {
    return firstChild.hasLabel && firstChild.horizontal != kAlignCenter;
}

// Where a proportional child goes: its running position and a share of `extra`, as large as the part of `way`
// that is already `spent`; rounded half away from zero. The running position itself where the division makes
// no pixel of it.
inline PixelSum ProportionalPosition(PixelSum running, PixelSum extra, PixelSum spent, PixelSum way) {
    const double share = static_cast<double>(spent) / static_cast<double>(way);
    const double exact = static_cast<double>(extra) * share + static_cast<double>(running);
    const double rounded = exact >= 0 ? std::floor(exact + 0.5) : -std::floor(0.5 - exact);
    const bool fits = rounded >= std::numeric_limits<std::int32_t>::min() &&
                      rounded <= std::numeric_limits<std::int32_t>::max();
    return fits ? static_cast<PixelSum>(rounded) : running;
}

} // namespace brixen::zeve
