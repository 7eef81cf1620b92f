// The platform of the frame: the same tests for the native twin and for Windows.
#include "frame/platform/frame_platform.h"

#include <gtest/gtest.h>

#include <array>
#include <atomic>
#include <cstring>
#include <filesystem>
#include <string>

namespace brixen::pvn {
namespace {

constexpr std::uint32_t kLongWait = 60'000; // milliseconds; only a failing test waits that long

std::u16string TemporaryFolder() {
    std::array<char16_t, kPathLimit> folder = {};
    const std::size_t length = GetTemporaryFolder(folder);
    EXPECT_LT(length, kPathLimit);
    EXPECT_EQ(folder[length], u'\0');
    return {folder.data(), length};
}

// A file of the test's own in the temporary folder.
class SharedFile : public testing::Test {
protected:
    void TearDown() override { std::filesystem::remove(Path()); }

    std::u16string Path() const {
        return TemporaryFolder() + u"pavane-shared-" +
               std::filesystem::path(std::to_string(CurrentProcessNumber())).u16string();
    }
};

TEST(TemporaryFolder, ExistsAndEndsWithItsSeparator) {
    const std::u16string folder = TemporaryFolder();
    ASSERT_FALSE(folder.empty());
    EXPECT_TRUE(folder.back() == u'/' || folder.back() == u'\\');
    EXPECT_TRUE(std::filesystem::is_directory(folder));
}

TEST_F(SharedFile, TwoStreamsWriteToTheSameFile) {
    std::FILE* const first = OpenSharedFile(Path().c_str(), true);
    std::FILE* const second = OpenSharedFile(Path().c_str(), true);
    ASSERT_TRUE(first && second);
    std::fputs("one", first);
    std::fflush(first);
    std::fputs("two", second);
    std::fflush(second);
    std::fputs("three", first);
    EXPECT_EQ(std::fclose(first), 0);
    EXPECT_EQ(std::fclose(second), 0);
    EXPECT_EQ(SizeOfFile(Path().c_str()), 11);
}

TEST_F(SharedFile, OpeningAppendsOrEmpties) {
    for (const bool append : {true, true, false}) {
        std::FILE* const file = OpenSharedFile(Path().c_str(), append);
        ASSERT_TRUE(file);
        std::fputs("1234", file);
        std::fclose(file);
    }
    EXPECT_EQ(SizeOfFile(Path().c_str()), 4);
}

TEST_F(SharedFile, IsTextWithTheSystemsLineEnds) {
    std::FILE* const file = OpenSharedFile(Path().c_str(), true);
    ASSERT_TRUE(file);
    std::fputs("1234\n", file);
    std::fclose(file);
    const bool hasTwoByteEnds = TemporaryFolder().back() == u'\\';
    EXPECT_EQ(SizeOfFile(Path().c_str()), hasTwoByteEnds ? 6 : 5);
}

TEST_F(SharedFile, AMissingFileHasNoSizeAndAMissingFolderNoStream) {
    EXPECT_EQ(SizeOfFile(Path().c_str()), -1);
    const std::u16string below = Path() + u"/absent";
    EXPECT_EQ(OpenSharedFile(below.c_str(), true), nullptr);
}

TEST(Clock, Advances) {
    const std::uint32_t start = TickCount();
    while (TickCount() == start) {
    }
    EXPECT_LT(TickCount() - start, kLongWait);
}

TEST(Clock, LocalTimeIsACalendarDay) {
    const std::time_t noon =
        86400 * 365 + 43200; // 1 January 1971 in every zone within half a day of the meridian
    std::tm parts = LocalTime(noon);
    EXPECT_EQ(parts.tm_year, 71);
    EXPECT_EQ(std::mktime(&parts), noon);
}

TEST(Process, MayPinTheLibraryRepeatedly) {
    PinLibrary();
    PinLibrary();
}

TEST(Process, HasANumber) { EXPECT_NE(CurrentProcessNumber(), 0u); }

unsigned long EndWith(void* code) { return *static_cast<unsigned long*>(code); }

TEST(Thread, EndsWithItsCode) {
    unsigned long wanted = 35074;
    const NativeThread thread = StartThread(EndWith, &wanted);
    ASSERT_NE(thread, nullptr);
    unsigned long code = 0;
    EXPECT_TRUE(WaitForThread(thread, kLongWait, &code));
    EXPECT_EQ(code, wanted);
    EXPECT_TRUE(WaitForThread(thread, 0, &code)) << "it stays ended";
    CloseThread(thread);
}

struct Door {
    std::atomic<bool> isOpen = false;
    std::atomic<bool> wasPassed = false;
};

unsigned long PassTheDoor(void* argument) {
    Door& door = *static_cast<Door*>(argument);
    while (!door.isOpen) YieldThread();
    door.wasPassed = true;
    return 0;
}

TEST(Thread, AWaitEndsAtItsTimeLimitWhileTheThreadRuns) {
    Door door;
    const NativeThread thread = StartThread(PassTheDoor, &door);
    ASSERT_NE(thread, nullptr);
    unsigned long code = 4711;
    EXPECT_FALSE(WaitForThread(thread, 1, &code));
    EXPECT_EQ(code, 4711u);
    door.isOpen = true;
    EXPECT_TRUE(WaitForThread(thread, kLongWait, &code));
    CloseThread(thread);
}

TEST(Thread, KeepsRunningAfterItsHandleIsClosed) {
    static Door door;
    const NativeThread thread = StartThread(PassTheDoor, &door);
    ASSERT_NE(thread, nullptr);
    CloseThread(thread);
    door.isOpen = true;
    while (!door.wasPassed) YieldThread();
}

std::string LocaleName(LanguageIdentifier language) {
    char name[kLocaleNameSize];
    std::memset(name, 'x', sizeof name);
    GetLocaleName(language, name);
    return name;
}

TEST(LocaleName, IsThatOfTheSystem) {
    const struct {
        LanguageIdentifier language;
        const char* name;
    } kCases[] = {
        {0x0409, "en-US"}, {0x0407, "de-DE"}, {0x040C, "fr-FR"}, {0x0411, "ja-JP"}, {0x040D, "he-IL"},
        {0x3801, "ar-AE"}, {0x0401, "ar-SA"}, {0x0410, "it-IT"}, {0x0412, "ko-KR"}, {0x0419, "ru-RU"},
        {0x0804, "zh-CN"}, {0x0807, "de-CH"}, {0x0809, "en-GB"},
    };
    for (const auto& given : kCases) EXPECT_EQ(LocaleName(given.language), given.name) << given.language;
}

TEST(LocaleName, OfAnUnknownLanguageIsEmpty) {
    EXPECT_EQ(LocaleName(0), "");
    EXPECT_EQ(LocaleName(0xFFFE), "");
}

TEST(ThreadLanguage, HasAName) { EXPECT_NE(LocaleName(ThreadLanguage()), ""); }

TEST(HostProgram, HasAFileNameWithoutFolder) {
    const HostProgram host = DescribeHostProgram();
    EXPECT_FALSE(host.fileName.empty());
    EXPECT_EQ(host.fileName.find_first_of("/\\"), std::string::npos);
    EXPECT_EQ(host.productName, "") << "this one has no version resource";
    EXPECT_EQ(host.fileDescription, "");
}

} // namespace
} // namespace brixen::pvn
