#include "workflow/platform/drive.h"

#include "values/unicode/platform/win32/wide.h"

#include <windows.h>

namespace brixen::pvn::pvn_workflow::platform {

std::optional<DriveSpace> SpaceOfDrive(const std::u16string& folder) noexcept {
    ULARGE_INTEGER free{}, total{};
    if (!GetDiskFreeSpaceExW(lyr::gen::Wide(folder.c_str()), &free, &total, nullptr)) return std::nullopt;
    return DriveSpace{total.QuadPart, free.QuadPart};
}

} // namespace brixen::pvn::pvn_workflow::platform
