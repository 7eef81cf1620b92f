#include "frame/log.h"

#include "support/log_file.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <unistd.h>

namespace brixen::pvn {
namespace {

using testing::ElementsAre;
using testing::MatchesRegex;

class Log : public testing::Test {
protected:
    // A folder whose path has that many units, its last separator among them.
    void UseFolderOfLength(std::size_t length) {
        std::string path = (fLog.Folder() / "").string();
        while (path.size() + 101 < length) path += std::string(99, 'd') + '/';
        if (path.size() < length) path += std::string(length - path.size() - 1, 'd') + '/';
        std::filesystem::create_directories(path);
        GetFrameTwin().temporaryFolder = std::filesystem::path(path).u16string();
        ASSERT_EQ(GetFrameTwin().temporaryFolder->size(), length);
        fLongFolder = path;
    }

    void WriteFileOfSize(std::size_t size) { std::ofstream(fLog.Path()) << std::string(size, 'x'); }

    pavane_test::LogFile fLog;
    std::filesystem::path fLongFolder;
};

TEST_F(Log, ALineIsThePrefixAndTheBody) {
    OpenLog(false);
    PvnLog("%s: %s: %d and %s\n", kLogComponent, kLogInfo, 7, "text");
    EXPECT_THAT(fLog.Text(), MatchesRegex("[0-9]{4}-[0-9]{2}-[0-9]{2} [0-9]{2}:[0-9]{2}:[0-9]{2} \\[" +
                                          std::to_string(getpid()) + "\\] PVN: _info_: 7 and text\n"));
}

TEST_F(Log, TheTimeIsLocalTime) {
    OpenLog(false);
    const std::time_t before = std::time(nullptr);
    PvnLog("\n");
    const std::time_t after = std::time(nullptr);
    std::tm parts = {};
    const std::string text = fLog.Text();
    ASSERT_TRUE(strptime(text.c_str(), "%Y-%m-%d %H:%M:%S", &parts)) << text;
    parts.tm_isdst = -1;
    EXPECT_GE(std::mktime(&parts), before);
    EXPECT_LE(std::mktime(&parts), after);
}

TEST_F(Log, EveryLineIsOnDiskAtOnce) {
    OpenLog(false);
    PvnLog("one\n");
    EXPECT_THAT(fLog.Bodies(), ElementsAre("one"));
    PvnLog("two\n");
    EXPECT_THAT(fLog.Bodies(), ElementsAre("one", "two"));
}

TEST_F(Log, ThePrefixAloneHasNoBodyAndNoFlush) {
    OpenLog(false);
    WriteLogPrefix();
    EXPECT_EQ(fLog.Text(), "");
    CloseLog();
    EXPECT_THAT(fLog.Text(), MatchesRegex("[-0-9]+ [:0-9]+ \\[[0-9]+\\] "));
}

TEST_F(Log, WithoutAnOpenFileNothingIsWrittenAndNothingFails) {
    PvnLog("before\n");
    WriteLogPrefix();
    OpenLog(false);
    CloseLog();
    PvnLog("after\n");
    WriteLogPrefix();
    CloseLog();
    EXPECT_EQ(fLog.Text(), "");
    EXPECT_EQ(gLogStream, nullptr);
}

TEST_F(Log, AFolderThatIsNotThereLeavesTheStreamNull) {
    GetFrameTwin().temporaryFolder = (fLog.Folder() / "absent" / "").u16string();
    OpenLog(false);
    EXPECT_EQ(gLogStream, nullptr);
    PvnLog("nowhere\n");
}

TEST_F(Log, RequirementLinesNameFunctionLineAndValue) {
    OpenLog(false);
    LogRequirement(kAlreadyInitialized);
    LogRequirement(kRunNotPrepared, kStatusBadArgument);
    EXPECT_THAT(fLog.Bodies(),
                ElementsAre("PVN: __req_: (func: brixen::pvn::Pavane_Initialize, line: 182)",
                            "PVN: __req_: (func: brixen::pvn::Pavane_RunWorkflow, line: 394, value: 33030)"));
}

TEST_F(Log, OpeningAppends) {
    WriteFileOfSize(300000);
    OpenLog(false);
    PvnLog("more\n");
    EXPECT_GT(std::filesystem::file_size(fLog.Path()), 300000u);
}

TEST_F(Log, TrimmingAppendsTo256000BytesAndEmpties256001) {
    WriteFileOfSize(256000);
    OpenLog(true);
    CloseLog();
    EXPECT_EQ(std::filesystem::file_size(fLog.Path()), 256000u);
    WriteFileOfSize(256001);
    OpenLog(true);
    CloseLog();
    EXPECT_EQ(std::filesystem::file_size(fLog.Path()), 0u);
}

TEST_F(Log, TrimmingMakesAFileThatIsNotThere) {
    OpenLog(true);
    PvnLog("first\n");
    EXPECT_THAT(fLog.Bodies(), ElementsAre("first"));
}

TEST_F(Log, AFolderOf252UnitsIsUsed) {
    UseFolderOfLength(252);
    OpenLog(false);
    EXPECT_TRUE(std::filesystem::exists(fLongFolder / "pvn.log"));
}

// The current directory is the process's: these two put a folder of their own in its place.
class LogInCurrentDirectory : public Log {
protected:
    void SetUp() override {
        fBefore = std::filesystem::current_path();
        std::filesystem::current_path(fLog.Folder());
    }
    void TearDown() override { std::filesystem::current_path(fBefore); }

    std::filesystem::path fBefore;
};

TEST_F(LogInCurrentDirectory, AFolderOf253UnitsOrMoreCountsAsNone) {
    for (const std::size_t length : {253u, 259u, 260u, 400u}) {
        UseFolderOfLength(length);
        OpenLog(false);
        PvnLog("here\n");
        CloseLog();
        EXPECT_FALSE(std::filesystem::exists(fLongFolder / "pvn.log")) << length;
        EXPECT_THAT(fLog.Bodies(), ElementsAre("here")) << length;
        std::filesystem::remove(fLog.Path());
    }
}

TEST_F(LogInCurrentDirectory, SoDoesAFolderThatCannotBeHad) {
    GetFrameTwin().temporaryFolder = u"";
    OpenLog(false);
    PvnLog("here\n");
    EXPECT_THAT(fLog.Bodies(), ElementsAre("here"));
}

TEST_F(Log, ASecondOpenWritesOnAndLeavesTheFirstStreamOpen) {
    OpenLog(false);
    std::FILE* const first = gLogStream;
    PvnLog("one\n");
    OpenLog(false);
    EXPECT_NE(gLogStream, first);
    PvnLog("two\n");
    EXPECT_GE(std::fprintf(first, "three\n"), 0);
    EXPECT_EQ(std::fclose(first), 0);
    EXPECT_THAT(fLog.Bodies(), ElementsAre("one", "two", "three"));
}

TEST_F(Log, AFolderMayHaveAnyName) {
    const std::filesystem::path folder = fLog.Folder() / u8"Zeitung-äöü-読み-😀";
    std::filesystem::create_directory(folder);
    GetFrameTwin().temporaryFolder = (folder / "").u16string();
    OpenLog(false);
    EXPECT_TRUE(std::filesystem::exists(folder / "pvn.log"));
}

} // namespace
} // namespace brixen::pvn
