#include "workflow/platform/drive.h"

#include <gtest/gtest.h>

namespace brixen::pvn::pvn_workflow::platform {
namespace {

TEST(DrivePlatform, TheDriveOfAFolderHasRoom) {
    const auto space = SpaceOfDrive(u"C:\\");
    ASSERT_TRUE(space.has_value());
    EXPECT_GT(space->total, 0u);
    EXPECT_LE(space->free, space->total);
}

} // namespace
} // namespace brixen::pvn::pvn_workflow::platform
