#include "services/loader_log.h"

#include "services/platform/posix/services_twin.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdio>
#include <string>

namespace brixen::pvn {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::string gLogged;

void Logv(void* session, const char* component, int level, const char* argumentFormats, const char* format,
          std::va_list arguments) {
    char text[200];
    std::vsnprintf(text, sizeof text, format, arguments);
    gLogged = std::string(session ? "session " : "null ") + component + " " + std::to_string(level) + " [" +
              argumentFormats + "] " + text;
}

class LoaderLogChannelTest : public testing::Test {
protected:
    LoaderLogChannelTest() {
        ResetServicesTwin();
        gLogged.clear();
    }

    LoaderLogChannel channel;
};

TEST_F(LoaderLogChannelTest, ShowsFailuresToTheDebuggerWithoutTheService) {
    LoaderLog(channel, kLoaderLevelFailure, "", "ERROR: base services library failed to load");
    LoaderLog(channel, kLoaderLevelUnusable, "%s", "Failed to open library %s", "a.dll");
    LoaderLog(channel, kLoaderLevelMissing, "%s", "Failed to find %s", "b.dll");
    EXPECT_THAT(GetServicesTwin().debuggerTexts,
                ElementsAre("ServiceLoader: ERROR: base services library failed to load\r\n",
                            "ServiceLoader: Failed to open library a.dll\r\n",
                            "ServiceLoader: Failed to find b.dll\r\n"));
}

TEST_F(LoaderLogChannelTest, DropsOtherLevelsWithoutTheService) {
    for (int level : {-1, 0, kLoaderLevelPath, kLoaderLevelProgress, 6}) {
        LoaderLog(channel, level, "%s", "adding search path: %s", "folder");
    }
    EXPECT_THAT(GetServicesTwin().debuggerTexts, IsEmpty());
}

TEST_F(LoaderLogChannelTest, CutsTheTextAt4093Bytes) {
    LoaderLog(channel, kLoaderLevelFailure, "%s", "%s", std::string(4093, 'a').c_str());
    LoaderLog(channel, kLoaderLevelFailure, "%s", "%s", std::string(5000, 'b').c_str());
    EXPECT_THAT(GetServicesTwin().debuggerTexts,
                ElementsAre("ServiceLoader: " + std::string(4093, 'a') + "\r\n",
                            "ServiceLoader: " + std::string(4093, 'b') + "\r\n"));
}

TEST_F(LoaderLogChannelTest, PassesEveryLevelToTheService) {
    channel = {true, [] { return LogvEntry(Logv); }};
    LoaderLog(channel, kLoaderLevelProgress, "%s", "looking for library %s", "c.dll");
    EXPECT_EQ(gLogged, "null ServiceLoader 5 [%s] looking for library c.dll");
    LoaderLog(channel, 0, "%s %s", "%s %s", "one", "two");
    EXPECT_EQ(gLogged, "null ServiceLoader 0 [%s %s] one two");
    EXPECT_THAT(GetServicesTwin().debuggerTexts, IsEmpty());
}

TEST_F(LoaderLogChannelTest, ShowsTheDebuggerThatTheServiceHasNoEntry) {
    channel = {true, [] { return LogvEntry(nullptr); }};
    LoaderLog(channel, kLoaderLevelProgress, "", "using logging service now");
    EXPECT_THAT(GetServicesTwin().debuggerTexts, ElementsAre("Logging: failed to find C_SVHLogv\n\r\n"));
}

TEST_F(LoaderLogChannelTest, HoldsTheSettingsOfTheService) {
    EXPECT_STREQ(kLogLevelSetting, "SVHLogLevel");
    EXPECT_STREQ(kLogFormatSetting, "SVHLogFormat");
    EXPECT_THAT(kLogLevels, ElementsAre(testing::StrEq("off"), testing::StrEq("critical"),
                                        testing::StrEq("error"), testing::StrEq("warning"),
                                        testing::StrEq("informational"), testing::StrEq("debug")));
    EXPECT_THAT(kLogFormats, ElementsAre(testing::StrEq("obscured"), testing::StrEq("clear")));
    EXPECT_STREQ(kDefaultLogLevel, "informational");
    EXPECT_STREQ(kDefaultLogFormat, "clear");
}

} // namespace
} // namespace brixen::pvn
