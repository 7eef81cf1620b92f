// The room on the drive of a folder.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace brixen::pvn::pvn_workflow::platform {

// In bytes. Of a drive with quotas it is the user's share.
struct DriveSpace {
    std::uint64_t total = 0;
    std::uint64_t free = 0;
};

// Returns nothing for a folder that is not there, or if the system refuses. It may take as long as a drive
// needs to wake up.
[[nodiscard]] std::optional<DriveSpace> SpaceOfDrive(const std::u16string& folder) noexcept;

} // namespace brixen::pvn::pvn_workflow::platform
