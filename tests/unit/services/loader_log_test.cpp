#include "services/loader_log.h"

#include "frame/platform/frame_platform.h"
#include "services/platform/posix/services_twin.h"
#include "support/log_file.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <cstdio>
#include <string>
#include <vector>

namespace brixen::pvn {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::string gLogged;

struct Channel : LoaderLogChannel {
    explicit Channel(LogvFunction function) : LoaderLogChannel(function) { useLoggingService = true; }
};

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
    Channel service(Logv);
    LoaderLog(service, kLoaderLevelProgress, "%s", "looking for library %s", "c.dll");
    EXPECT_EQ(gLogged, "null ServiceLoader 5 [%s] looking for library c.dll");
    LoaderLog(service, 0, "%s %s", "%s %s", "one", "two");
    EXPECT_EQ(gLogged, "null ServiceLoader 0 [%s %s] one two");
    EXPECT_THAT(GetServicesTwin().debuggerTexts, IsEmpty());
}

TEST_F(LoaderLogChannelTest, StaysWithTheDebuggerIfThereIsNoFunctionOfAService) {
    Channel service(nullptr);
    LoaderLog(service, kLoaderLevelMissing, "%s", "Failed to find %s", "a.dll");
    LoaderLog(service, kLoaderLevelProgress, "%s", "Found library %s", "a.dll");
    EXPECT_THAT(GetServicesTwin().debuggerTexts, ElementsAre("ServiceLoader: Failed to find a.dll\r\n"));
}

TEST_F(LoaderLogChannelTest, WritesNothingToTheLogFile) {
    const pavane_test::LogFile file;
    OpenLog(false);
    Channel service(Logv);
    for (int level = 0; level <= kLoaderLevelProgress; ++level) {
        LoaderLog(channel, level, "%s", "Failed to find %s", "a.dll");
        LoaderLog(service, level, "%s", "Failed to find %s", "a.dll");
    }
    ShowToDebugger("Logging", "failed to find C_SVHLogv\n");
    EXPECT_EQ(file.Text(), "");
    PvnLog("the file is open\n");
    EXPECT_EQ(file.Bodies().size(), 1u);
}

Channel* gReentered = nullptr;
int gDepth = 0, gDeepest = 0;

void LogvThatLogs(void*, const char*, int, const char*, const char*, std::va_list) {
    gDeepest = std::max(gDeepest, ++gDepth);
    LoaderLog(*gReentered, kLoaderLevelUnusable, "%d", "inside %d", gDepth);
    LoaderLog(*gReentered, kLoaderLevelProgress, "", "dropped");
    --gDepth;
}

TEST_F(LoaderLogChannelTest, ShowsAMessageInsideAMessageToTheDebugger) {
    Channel service(LogvThatLogs);
    gReentered = &service;
    gDeepest = 0;
    LoaderLog(service, kLoaderLevelProgress, "", "one");
    LoaderLog(service, kLoaderLevelProgress, "", "two");
    EXPECT_EQ(gDeepest, 1);
    EXPECT_THAT(GetServicesTwin().debuggerTexts,
                ElementsAre("ServiceLoader: inside 1\r\n", "ServiceLoader: inside 1\r\n"));
}

std::vector<std::string> gFromOtherThreads;

void LogvWithOtherThreads(void*, const char*, int, const char*, const char* format, std::va_list) {
    gFromOtherThreads.push_back(format);
    if (std::string(format) != "first") return;
    const auto log = [](void*) -> unsigned long {
        LoaderLog(*gReentered, kLoaderLevelProgress, "", "of another thread");
        return 0;
    };
    const NativeThread thread = StartThread(log, nullptr);
    unsigned long code = 0;
    EXPECT_TRUE(WaitForThread(thread, 10000, &code));
    CloseThread(thread);
    LoaderLog(*gReentered, kLoaderLevelMissing, "", "of this thread");
}

TEST_F(LoaderLogChannelTest, KnowsWhichThreadAMessageIsOf) {
    Channel service(LogvWithOtherThreads);
    gReentered = &service;
    gFromOtherThreads.clear();
    LoaderLog(service, kLoaderLevelProgress, "", "first");
    LoaderLog(service, kLoaderLevelProgress, "", "last");
    EXPECT_THAT(gFromOtherThreads, ElementsAre("first", "of another thread", "last"));
    EXPECT_THAT(GetServicesTwin().debuggerTexts, ElementsAre("ServiceLoader: of this thread\r\n"));
}

std::atomic<bool> gIsOtherInside, gMayOtherLeave;
NativeThread gOther = nullptr;

// The message of the first thread begins before that of the other thread, and ends before it.
void LogvThatOverlaps(void*, const char*, int, const char*, const char* format, std::va_list) {
    if (std::string(format) == "of the other") {
        gIsOtherInside = true;
        while (!gMayOtherLeave) YieldThread();
        return;
    }
    const auto log = [](void*) -> unsigned long {
        LoaderLog(*gReentered, kLoaderLevelProgress, "", "of the other");
        return 0;
    };
    gOther = StartThread(log, nullptr);
    while (!gIsOtherInside) YieldThread();
}

TEST_F(LoaderLogChannelTest, LetsMessagesOfThreadsEndInAnyOrder) {
    Channel service(LogvThatOverlaps);
    gReentered = &service;
    LoaderLog(service, kLoaderLevelProgress, "", "of the first");
    ASSERT_NE(service.messages, nullptr);
    EXPECT_NE(service.messages->thread, CurrentThreadNumber());
    EXPECT_EQ(service.messages->next, nullptr);
    gMayOtherLeave = true;
    unsigned long code = 0;
    EXPECT_TRUE(WaitForThread(gOther, 10000, &code));
    CloseThread(gOther);
    EXPECT_EQ(service.messages, nullptr);
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
