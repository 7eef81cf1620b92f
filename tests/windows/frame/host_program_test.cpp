// What the library reads from its host's version resource (see host_program.rc).
#include "frame/platform/frame_platform.h"

#include <gtest/gtest.h>

namespace brixen::pvn {
namespace {

TEST(HostProgram, TellsTheTextsOfItsFirstLanguage) {
    const HostProgram host = DescribeHostProgram();
    EXPECT_EQ(host.productName, "M\u00e4rchen \u65e5");
    EXPECT_EQ(host.fileDescription, "Zeichnen und \u05db");
    EXPECT_EQ(host.fileName, "windows_frame.exe");
}

} // namespace
} // namespace brixen::pvn
