// What the twin of drives answers. Native builds only.
#pragma once

#include "workflow/platform/drive.h"

#include <optional>
#include <string>

namespace brixen::pvn::pvn_workflow::platform {

struct DriveRecorder {
    std::optional<DriveSpace> space = DriveSpace{500ull << 30, 200ull << 30}; // nothing: the system refuses
    std::u16string folder;                                                    // of the latest question

    void Reset() { *this = DriveRecorder(); }
};

DriveRecorder& TheDriveRecorder();

} // namespace brixen::pvn::pvn_workflow::platform
