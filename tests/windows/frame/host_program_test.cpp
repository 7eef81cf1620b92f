// The version resource of the host (see host_program.rc) as the library reads it.
#include "frame/platform/frame_platform.h"

#include <gtest/gtest.h>

namespace brixen::pvn {
namespace {

TEST(HostProgram, ReturnsTheTextsOfTheFirstLanguage) {
    const HostProgram host = DescribeHostProgram();
    EXPECT_EQ(host.productName, "M\u00e4rchen \u65e5");
    EXPECT_EQ(host.fileDescription, "Zeichnen und \u05db");
    EXPECT_EQ(host.fileName, "windows_frame.exe");
}

} // namespace
} // namespace brixen::pvn
