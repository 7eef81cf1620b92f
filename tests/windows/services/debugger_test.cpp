#include "services/loader_log.h"
#include "windows/services/debugger_texts.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace brixen::pvn {
namespace {

TEST(LoaderLogOnWindows, ReachesTheDebugger) {
    DebuggerTexts texts;
    LoaderLogChannel channel;
    LoaderLog(channel, kLoaderLevelMissing, "%s", "Failed to find %s", "a.dll");
    EXPECT_THAT(texts.Get(), testing::ElementsAre("ServiceLoader: Failed to find a.dll\r\n"));
}

} // namespace
} // namespace brixen::pvn
