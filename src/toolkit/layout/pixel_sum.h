// Sums of pixels: made in 64 bits, cut to 32 bits when a view stores them.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>

namespace brixen::zeve {

// A sum of 32-bit lengths. Neither the number of views nor their sizes can make it overflow.
using PixelSum = std::int64_t;

// Returns the low 32 bits.
[[nodiscard]] inline std::int32_t Cut(PixelSum sum) { return static_cast<std::int32_t>(sum); }

// Makes `field` at least `least`.
inline void Raise(std::int32_t& field, PixelSum least) { field = Cut(std::max<PixelSum>(field, least)); }

// Returns the position of a proportional child: its running position and a share of `extra`, as large as the
// part of `way` that is already `spent`, rounded half away from zero. Returns the running position where the
// result is no number of 32 bits, as after a division by zero.
[[nodiscard]] inline PixelSum ProportionalPosition(PixelSum running, PixelSum extra, PixelSum spent,
                                                   PixelSum way) {
    const double share = static_cast<double>(spent) / static_cast<double>(way);
    const double exact = static_cast<double>(extra) * share + static_cast<double>(running);
    const double rounded = exact >= 0 ? std::floor(exact + 0.5) : -std::floor(0.5 - exact);
    const bool fits = rounded >= std::numeric_limits<std::int32_t>::min() &&
                      rounded <= std::numeric_limits<std::int32_t>::max();
    return fits ? static_cast<PixelSum>(rounded) : running;
}

} // namespace brixen::zeve
