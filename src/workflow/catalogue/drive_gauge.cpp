#include "workflow/catalogue/drive_gauge.h"

#include <algorithm>
#include <limits>

namespace brixen::pvn::pvn_workflow {

namespace {

constexpr std::uint64_t kFewUnits = 16; // a size below this many units is too coarse
constexpr std::uint64_t kMost = std::numeric_limits<std::uint16_t>::max();

// From the smallest to the largest.
constexpr struct {
    int bits; // of one unit, in bytes
    const char* key;
} kUnits[] = {
    {20, "$$$/pvn/feedback/unit/mib"},
    {30, "$$$/pvn/feedback/unit/gib"},
    {40, "$$$/pvn/feedback/unit/tib"},
};

} // namespace

DriveGauge GaugeOfDrive(const platform::DriveSpace& space) {
    const auto* unit = std::end(kUnits) - 1;
    while (unit != kUnits && space.total >> unit->bits < kFewUnits) --unit;
    const std::uint64_t used = space.total - std::min(space.free, space.total);
    const std::uint64_t total = std::min(space.total >> unit->bits, kMost);
    return {static_cast<std::uint16_t>(std::min(used >> unit->bits, total)),
            static_cast<std::uint16_t>(total), unit->key};
}

} // namespace brixen::pvn::pvn_workflow
