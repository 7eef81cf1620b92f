// The log on Windows: its place, its line ends, and other programs that read and write it meanwhile.
#include "frame/frame_state.h"
#include "frame/log.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <windows.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace brixen::pvn {
namespace {

using testing::EndsWith;

class LogOnWindows : public testing::Test {
protected:
    void SetUp() override {
        tmpBefore = Variable(L"TMP");
        directoryBefore = std::filesystem::current_path();
        std::filesystem::current_path(folder);
        SetEnvironmentVariableW(L"TMP", folder.c_str());
    }
    void TearDown() override {
        CloseLog();
        SetEnvironmentVariableW(L"TMP", tmpBefore.c_str());
        std::filesystem::current_path(directoryBefore);
    }

    static std::wstring Variable(const wchar_t* name) {
        wchar_t text[1000] = {};
        GetEnvironmentVariableW(name, text, 1000);
        return text;
    }

    static std::string TextOf(const std::filesystem::path& path) {
        std::ifstream file(path, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }

    // Sets TMP to a folder whose path, as the system returns it with its last separator, has that length.
    std::filesystem::path UseFolderOfLength(std::size_t length) {
        std::wstring path = folder.wstring();
        while (path.size() + 101 < length - 1) path += L'\\' + std::wstring(99, L'd');
        path += L'\\' + std::wstring(length - 1 - path.size() - 1, L'd');
        std::filesystem::create_directories(path);
        SetEnvironmentVariableW(L"TMP", path.c_str());
        wchar_t given[300];
        EXPECT_EQ(GetTempPathW(300, given), length);
        return path;
    }

    const pavane_test::TemporaryFolder owner;
    const std::filesystem::path& folder = owner.Path();
    std::filesystem::path directoryBefore;
    std::wstring tmpBefore;
};

TEST_F(LogOnWindows, LinesEndInCrLfAndHoldTheProcessId) {
    OpenLog(false);
    PvnLog("%s: %s: text\n", kLogComponent, kLogInfo);
    EXPECT_THAT(TextOf(folder / "pvn.log"),
                EndsWith("[" + std::to_string(GetCurrentProcessId()) + "] PVN: _info_: text\r\n"));
}

TEST_F(LogOnWindows, OtherProgramsMayReadAndWriteTheOpenFile) {
    OpenLog(false);
    PvnLog("one\n");
    const HANDLE other = CreateFileW((folder / "pvn.log").c_str(), GENERIC_READ | GENERIC_WRITE,
                                     FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING, 0, nullptr);
    EXPECT_NE(other, INVALID_HANDLE_VALUE);
    CloseHandle(other);
}

TEST_F(LogOnWindows, ALockedFileLeavesTheStreamNull) {
    const HANDLE owner =
        CreateFileW((folder / "pvn.log").c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
    ASSERT_NE(owner, INVALID_HANDLE_VALUE);
    OpenLog(false);
    EXPECT_EQ(GetFrameState().gLogStream, nullptr);
    PvnLog("nowhere\n");
    CloseHandle(owner);
}

// The C library has 512 streams.
TEST_F(LogOnWindows, ReopeningDoesNotUseUpTheStreamsOfTheProcess) {
    for (int i = 0; i < 600; ++i) OpenLog(false);
    ASSERT_NE(GetFrameState().gLogStream, nullptr);
    std::FILE* const file = std::fopen("other.txt", "w");
    ASSERT_NE(file, nullptr);
    std::fclose(file);
}

TEST_F(LogOnWindows, AFolderOf252UnitsIsUsedAndOneOf253IsNot) {
    const auto used = UseFolderOfLength(252);
    OpenLog(false);
    CloseLog();
    EXPECT_TRUE(std::filesystem::exists(used / "pvn.log"));
    EXPECT_FALSE(std::filesystem::exists(folder / "pvn.log"));

    UseFolderOfLength(253);
    OpenLog(false);
    CloseLog();
    EXPECT_TRUE(std::filesystem::exists(folder / "pvn.log")) << "the current directory";
}

TEST_F(LogOnWindows, TrimmingEmpties256001Bytes) {
    const auto path = folder / "pvn.log";
    std::ofstream(path, std::ios::binary) << std::string(256000, 'x');
    OpenLog(true);
    CloseLog();
    EXPECT_EQ(std::filesystem::file_size(path), 256000u);
    std::ofstream(path, std::ios::binary) << std::string(256001, 'x');
    OpenLog(true);
    CloseLog();
    EXPECT_EQ(std::filesystem::file_size(path), 0u);
}

} // namespace
} // namespace brixen::pvn
