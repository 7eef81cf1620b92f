#include "workflow/platform/pane_platform.h"

#include <gtest/gtest.h>

namespace brixen::pvn::pvn_workflow::platform {
namespace {

TEST(PanePlatform, ContrastIsNotHighByDefault) { EXPECT_FALSE(IsHighContrast()); }

TEST(PanePlatform, AMissingProgramIsNotStarted) {
    EXPECT_FALSE(StartProgram(u"no-such-program-anywhere.exe", u"page.html", 9));
    EXPECT_FALSE(StartProgram(u"no-such-program-anywhere.exe", u"", 1));
}

} // namespace
} // namespace brixen::pvn::pvn_workflow::platform
