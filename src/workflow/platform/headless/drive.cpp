#include "workflow/platform/drive.h"

#include "workflow/platform/headless/drive_recorder.h"

#include <new>

namespace brixen::pvn::pvn_workflow::platform {

DriveRecorder& TheDriveRecorder() {
    static DriveRecorder recorder;
    return recorder;
}

std::optional<DriveSpace> SpaceOfDrive(const std::u16string& folder) noexcept try {
    TheDriveRecorder().folder = folder;
    return TheDriveRecorder().space;
} catch (const std::bad_alloc&) {
    return std::nullopt;
}

} // namespace brixen::pvn::pvn_workflow::platform
