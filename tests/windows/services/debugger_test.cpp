#include "services/loader_log.h"

#include <windows.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace brixen::pvn {
namespace {

constexpr DWORD kDebuggerText = 0x40010006;

std::vector<std::string> gTexts;

LONG CALLBACK CatchText(EXCEPTION_POINTERS* pointers) {
    const EXCEPTION_RECORD& record = *pointers->ExceptionRecord;
    if (record.ExceptionCode != kDebuggerText) return EXCEPTION_CONTINUE_SEARCH;
    gTexts.emplace_back(reinterpret_cast<const char*>(record.ExceptionInformation[1]));
    return EXCEPTION_CONTINUE_EXECUTION;
}

TEST(LoaderLogOnWindows, ReachesTheDebugger) {
    void* const handler = AddVectoredExceptionHandler(1, CatchText);
    LoaderLogChannel channel;
    LoaderLog(channel, kLoaderLevelMissing, "%s", "Failed to find %s", "a.dll");
    RemoveVectoredExceptionHandler(handler);
    EXPECT_THAT(gTexts, testing::ElementsAre("ServiceLoader: Failed to find a.dll\r\n"));
}

} // namespace
} // namespace brixen::pvn
