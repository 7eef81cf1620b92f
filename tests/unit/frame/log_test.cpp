#include "frame/log.h"

#include "frame/brief_lock.h"
#include "frame/frame_state.h"

#include "support/log_file.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <atomic>
#include <iomanip>
#include <iterator>
#include <regex>
#include <sstream>
#include <unistd.h>

namespace brixen::pvn {
namespace {

using testing::ElementsAre;

class Log : public testing::Test {
protected:
    // Makes a folder with a path of that many units, including its last separator.
    void UseFolderOfLength(std::size_t length) {
        std::string path = (log.Folder() / "").string();
        while (path.size() + 101 < length) path += std::string(99, 'd') + '/';
        if (path.size() < length) path += std::string(length - path.size() - 1, 'd') + '/';
        std::filesystem::create_directories(path);
        GetFrameTwin().temporaryFolder = std::filesystem::path(path).u16string();
        ASSERT_EQ(GetFrameTwin().temporaryFolder->size(), length);
        longFolder = path;
    }

    // Expects that each line of the file is one that WriteLines or WriteManyLines writes.
    void ExpectWholeLines() const {
        std::ifstream file(log.Path());
        for (std::string line; std::getline(file, line);) {
            ASSERT_EQ(line.size(), std::string("2026-01-02 03:04:05 [] a whole line").size() +
                                       std::to_string(getpid()).size());
            ASSERT_TRUE(line.ends_with("] a whole line")) << line;
        }
    }

    void WriteFileOfSize(std::size_t size) { std::ofstream(log.Path()) << std::string(size, 'x'); }

    pavane_test::LogFile log;
    std::filesystem::path longFolder;
};

// GoogleTest's own expressions know no brackets on Windows.
MATCHER_P(IsLike, expression, "") { return std::regex_match(arg, std::regex(expression)); }

TEST_F(Log, ALineIsThePrefixAndTheBody) {
    OpenLog(false);
    PvnLog("%s: %s: %d and %s\n", kLogComponent, kLogInfo, 7, "text");
    EXPECT_THAT(log.Text(), IsLike("[0-9]{4}-[0-9]{2}-[0-9]{2} [0-9]{2}:[0-9]{2}:[0-9]{2} \\[" +
                                   std::to_string(getpid()) + "\\] PVN: _info_: 7 and text\r?\n"));
}

TEST_F(Log, TheTimeIsLocalTime) {
    OpenLog(false);
    const std::time_t before = std::time(nullptr);
    PvnLog("\n");
    const std::time_t after = std::time(nullptr);
    std::tm parts = {};
    const std::string text = log.Text();
    ASSERT_TRUE(std::istringstream(text) >> std::get_time(&parts, "%Y-%m-%d %H:%M:%S")) << text;
    parts.tm_isdst = -1;
    EXPECT_GE(std::mktime(&parts), before);
    EXPECT_LE(std::mktime(&parts), after);
}

TEST_F(Log, EveryLineIsOnDiskAtOnce) {
    OpenLog(false);
    PvnLog("one\n");
    EXPECT_THAT(log.Bodies(), ElementsAre("one"));
    PvnLog("two\n");
    EXPECT_THAT(log.Bodies(), ElementsAre("one", "two"));
}

TEST_F(Log, ThePrefixAloneHasNoBodyAndNoFlush) {
    OpenLog(false);
    WriteLogPrefix();
    EXPECT_EQ(log.Text(), "");
    CloseLog();
    EXPECT_THAT(log.Text(), IsLike("[-0-9]+ [:0-9]+ \\[[0-9]+\\] "));
}

TEST_F(Log, WritesNothingAndFailsNothingWithoutAnOpenFile) {
    PvnLog("before\n");
    WriteLogPrefix();
    OpenLog(false);
    CloseLog();
    PvnLog("after\n");
    WriteLogPrefix();
    CloseLog();
    EXPECT_EQ(log.Text(), "");
    EXPECT_EQ(GetFrameState().gLogStream, nullptr);
}

TEST_F(Log, AMissingFolderLeavesTheStreamNull) {
    GetFrameTwin().temporaryFolder = (log.Folder() / "absent" / "").u16string();
    OpenLog(false);
    EXPECT_EQ(GetFrameState().gLogStream, nullptr);
    PvnLog("nowhere\n");
}

TEST_F(Log, RequirementLinesNameFunctionLineAndValue) {
    OpenLog(false);
    LogRequirement(kAlreadyInitialized);
    LogRequirement(kRunNotPrepared, kStatusBadArgument);
    EXPECT_THAT(log.Bodies(),
                ElementsAre("PVN: __req_: (func: brixen::pvn::Pavane_Initialize, line: 182)",
                            "PVN: __req_: (func: brixen::pvn::Pavane_RunWorkflow, line: 394, value: 33030)"));
}

TEST_F(Log, OpeningAppends) {
    WriteFileOfSize(300000);
    OpenLog(false);
    PvnLog("more\n");
    EXPECT_GT(std::filesystem::file_size(log.Path()), 300000u);
}

TEST_F(Log, TrimmingAppendsTo256000BytesAndEmpties256001) {
    WriteFileOfSize(256000);
    OpenLog(true);
    CloseLog();
    EXPECT_EQ(std::filesystem::file_size(log.Path()), 256000u);
    WriteFileOfSize(256001);
    OpenLog(true);
    CloseLog();
    EXPECT_EQ(std::filesystem::file_size(log.Path()), 0u);
}

TEST_F(Log, TrimmingCreatesAMissingFile) {
    OpenLog(true);
    PvnLog("first\n");
    EXPECT_THAT(log.Bodies(), ElementsAre("first"));
}

TEST_F(Log, AFolderOf252UnitsIsUsed) {
    UseFolderOfLength(252);
    OpenLog(false);
    EXPECT_TRUE(std::filesystem::exists(longFolder / "pvn.log"));
}

// The current directory belongs to the process: these tests replace it for their time.
class LogInCurrentDirectory : public Log {
protected:
    void SetUp() override {
        before = std::filesystem::current_path();
        std::filesystem::current_path(log.Folder());
    }
    void TearDown() override { std::filesystem::current_path(before); }

    std::filesystem::path before;
};

TEST_F(LogInCurrentDirectory, AFolderOf253UnitsOrMoreCountsAsNone) {
    for (const std::size_t length : {253u, 259u, 260u, 400u}) {
        UseFolderOfLength(length);
        OpenLog(false);
        PvnLog("here\n");
        CloseLog();
        EXPECT_FALSE(std::filesystem::exists(longFolder / "pvn.log")) << length;
        EXPECT_THAT(log.Bodies(), ElementsAre("here")) << length;
        std::filesystem::remove(log.Path());
    }
}

TEST_F(LogInCurrentDirectory, AFolderThatTheSystemRefusesCountsAsNone) {
    GetFrameTwin().temporaryFolder = u"";
    OpenLog(false);
    PvnLog("here\n");
    EXPECT_THAT(log.Bodies(), ElementsAre("here"));
}

std::ptrdiff_t OpenFiles() {
    const std::filesystem::directory_iterator files("/proc/self/fd");
    return std::distance(begin(files), end(files));
}

TEST_F(Log, ASecondOpenAppendsAndClosesTheStreamThatItReplaces) {
    OpenLog(false);
    PvnLog("one\n");
    const auto before = OpenFiles();
    for (int i = 0; i < 600; ++i) OpenLog(false);
    EXPECT_EQ(OpenFiles(), before);
    PvnLog("two\n");
    EXPECT_THAT(log.Bodies(), ElementsAre("one", "two"));
}

TEST_F(Log, ASecondOpenThatFailsClosesTheLog) {
    OpenLog(false);
    GetFrameTwin().temporaryFolder = (log.Folder() / "absent" / "").u16string();
    OpenLog(false);
    EXPECT_EQ(GetFrameState().gLogStream, nullptr);
}

unsigned long WriteLines(void* stop) {
    while (!*static_cast<std::atomic<bool>*>(stop)) {
        PvnLog("%s\n", "a whole line");
        YieldThread();
    }
    return 0;
}

TEST_F(Log, LinesStayWholeWhenItIsOpenedAgainWhileAnotherThreadWrites) {
    OpenLog(false);
    std::atomic<bool> stop = false;
    const NativeThread writer = StartThread(WriteLines, &stop);
    ASSERT_NE(writer, nullptr);
    while (std::filesystem::file_size(log.Path()) == 0) YieldThread();
    for (int i = 0; i < 100; ++i) {
        OpenLog(false);
        PvnLog("%s\n", "a whole line");
    }
    stop = true;
    unsigned long code = 1;
    EXPECT_TRUE(WaitForThread(writer, 60'000, &code));
    CloseThread(writer);
    ExpectWholeLines();
}

unsigned long WriteManyLines(void*) {
    for (int i = 0; i < 20'000; ++i) PvnLog("%s\n", "a whole line");
    return 0;
}

TEST_F(Log, LinesStayWholeWhenTwoThreadsWriteAtOnce) {
    OpenLog(false);
    const NativeThread writer = StartThread(WriteManyLines, nullptr);
    ASSERT_NE(writer, nullptr);
    WriteManyLines(nullptr);
    unsigned long code = 1;
    EXPECT_TRUE(WaitForThread(writer, 60'000, &code));
    CloseThread(writer);
    ExpectWholeLines();
}

TEST_F(Log, ClosesUnderAThreadThatWrites) {
    std::atomic<bool> stop = false;
    const NativeThread writer = StartThread(WriteLines, &stop);
    ASSERT_NE(writer, nullptr);
    for (int i = 0; i < 100; ++i) {
        OpenLog(false);
        const auto size = std::filesystem::file_size(log.Path());
        while (std::filesystem::file_size(log.Path()) == size) YieldThread();
        CloseLog();
        EXPECT_EQ(GetFrameState().gLogStream, nullptr);
    }
    stop = true;
    unsigned long code = 1;
    EXPECT_TRUE(WaitForThread(writer, 60'000, &code));
    CloseThread(writer);
    ExpectWholeLines();
}

// The end of a process ends its other threads wherever they are, before the libraries are told.
TEST_F(Log, DoesNotHangAfterAThreadThatEndedInsideAWriter) {
    constexpr std::uint32_t kStart = 0xFFFFFF00, kPerLook = 100; // the count wraps meanwhile
    OpenLog(false);
    PvnLog("before\n");
    std::FILE* const stream = GetFrameState().gLogStream;
    const auto files = OpenFiles();
    GetFrameState().isLogBusy.test_and_set();
    GetFrameTwin().tickCount = kStart;
    GetFrameTwin().ticksPerLook = kPerLook;
    PvnLog("lost\n");
    EXPECT_EQ(*GetFrameTwin().tickCount, kStart + kLongestWaitForLock + kPerLook);
    WriteLogPrefix();
    OpenLog(false);
    CloseLog();
    EXPECT_EQ(GetFrameState().gLogStream, stream) << "its writer may have left it in any state";
    EXPECT_EQ(OpenFiles(), files);
    EXPECT_EQ(*GetFrameTwin().tickCount, kStart + 4 * (kLongestWaitForLock + kPerLook));
    GetFrameState().isLogBusy.clear();
    PvnLog("after\n");
    EXPECT_THAT(log.Bodies(), ElementsAre("before", "after"));
}

TEST_F(Log, AFolderMayHaveAnyName) {
    const std::filesystem::path folder = log.Folder() / u8"Zeitung-äöü-読み-😀";
    std::filesystem::create_directory(folder);
    GetFrameTwin().temporaryFolder = (folder / "").u16string();
    OpenLog(false);
    EXPECT_TRUE(std::filesystem::exists(folder / "pvn.log"));
}

} // namespace
} // namespace brixen::pvn
