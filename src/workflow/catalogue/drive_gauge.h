// The numbers that the gauge of a drive shows: 16 bits have to hold them.
#pragma once

#include "workflow/platform/drive.h"

#include <cstdint>

namespace brixen::pvn::pvn_workflow {

// A drive in units in which its size is a number of a few digits.
struct DriveGauge {
    std::uint16_t used = 0;
    std::uint16_t total = 0;       // at least `used`
    const char* unitKey = nullptr; // of the name of the unit
};

// Takes the largest unit of which the drive has some, so that a drive of 8 GB counts in MB and one of 500 GB
// in GB. A drive beyond the largest unit's 65,535 is shown as that many.
[[nodiscard]] DriveGauge GaugeOfDrive(const platform::DriveSpace& space);

} // namespace brixen::pvn::pvn_workflow
