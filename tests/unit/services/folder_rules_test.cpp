#include "services/folder_rules.h"

#include <gtest/gtest.h>

namespace brixen::pvn {
namespace {

TEST(FolderOfFile, HasNoBackslashAtItsEnd) {
    EXPECT_EQ(FolderOfFile("C:\\App\\pavane.dll"), "C:\\App");
    EXPECT_EQ(FolderOfFile("C:\\App\\Deep\\pavane.dll"), "C:\\App\\Deep");
    EXPECT_EQ(FolderOfFile("\\\\server\\share\\pavane.dll"), "\\\\server\\share");
    EXPECT_EQ(FolderOfFile("C:/App/pavane.dll"), "C:/App");
    EXPECT_EQ(FolderOfFile("C:\\Pr\xC3\xA9sent\\pavane.dll"), "C:\\Pr\xC3\xA9sent");
}

TEST(FolderOfFile, KeepsTheBackslashOfADrive) {
    EXPECT_EQ(FolderOfFile("C:\\pavane.dll"), "C:\\");
    EXPECT_EQ(FolderOfFile("\\\\?\\C:\\pavane.dll"), "\\\\?\\C:\\");
}

TEST(FolderOfFile, IsEmptyWithoutAFolder) {
    EXPECT_EQ(FolderOfFile("pavane.dll"), "");
    EXPECT_EQ(FolderOfFile("\\pavane.dll"), "");
    EXPECT_EQ(FolderOfFile(""), "");
}

TEST(FolderOfAServer, IsKnownByItsName) {
    for (const char* folder : {"\\\\server\\share", "\\\\u\\share\\below", "\\\\?\\UNC\\server\\share",
                               "\\\\?\\unc\\server\\share", "\\\\.\\UNC\\server\\share"}) {
        EXPECT_TRUE(IsOnServer(folder)) << folder;
    }
    for (const char* folder : {"C:\\App", "C:\\UNC\\server", "C:\\\\server\\share", "\\\\?\\C:\\App",
                               "\\\\.\\C:\\App", "\\\\?\\UNCLE\\App", "\\\\?\\UNC", "\\App", "\\", ""}) {
        EXPECT_FALSE(IsOnServer(folder)) << folder;
    }
}

constexpr char kTemporary[] = "C:\\Users\\Ann\\Temp";

bool IsTrustedOnDisk(const std::string& folder, const std::string& temporary = kTemporary) {
    return IsTrusted({folder, false}, {temporary, false});
}

TEST(TrustedFolder, IsAnyOnTheDisksOutsideTheTemporaryFolder) {
    EXPECT_TRUE(IsTrustedOnDisk("C:\\App"));
    EXPECT_TRUE(IsTrustedOnDisk("C:\\Users\\Ann"));
    EXPECT_TRUE(IsTrustedOnDisk("C:\\Users\\Ann\\Tempo"));
    EXPECT_TRUE(IsTrustedOnDisk("D:\\Users\\Ann\\Temp"));
    EXPECT_TRUE(IsTrustedOnDisk("C:\\"));
}

TEST(TrustedFolder, IsNotTheTemporaryFolderNorOneInsideIt) {
    for (const char* temporary : {kTemporary, "C:\\Users\\Ann\\Temp\\", "c:\\users\\ann\\TEMP"}) {
        EXPECT_FALSE(IsTrustedOnDisk("C:\\Users\\Ann\\Temp", temporary)) << temporary;
        EXPECT_FALSE(IsTrustedOnDisk("C:\\Users\\Ann\\Temp\\unpacked", temporary)) << temporary;
        EXPECT_FALSE(IsTrustedOnDisk("C:\\users\\ann\\temp\\a\\b", temporary)) << temporary;
    }
}

TEST(TrustedFolder, IsNotOnTheNetworkAndExists) {
    EXPECT_FALSE(IsTrusted({"C:\\App", true}, {kTemporary, false}));
    EXPECT_FALSE(IsTrusted({"\\\\?\\UNC\\server\\share", false}, {kTemporary, false}));
    EXPECT_FALSE(IsTrusted({"", false}, {kTemporary, false}));
}

TEST(TrustedFolder, NeedsNoTemporaryFolder) {
    EXPECT_TRUE(IsTrustedOnDisk("C:\\App", ""));
    EXPECT_TRUE(IsTrustedOnDisk("\\\\?\\C:\\App", ""));
    EXPECT_TRUE(IsTrustedOnDisk("\\\\?\\C:\\App", "\\"));
}

} // namespace
} // namespace brixen::pvn
