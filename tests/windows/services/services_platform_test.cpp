// What the service loader asks of Windows.
#include "services/platform/services_platform.h"

#include "services/service_loader.h"
#include "windows/services/companion_fixture.h"
#include "windows/toolkit/patched_import.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <cerrno>
#include <string_view>

namespace brixen::pvn {
namespace {

TEST(ServicesPlatform, KnowsTheFileThatHoldsThisCode) {
    const std::string file = ModuleFile();
    EXPECT_TRUE(file.ends_with("\\windows_services.exe")) << file;
    EXPECT_TRUE(IsExistingFile(file));
    EXPECT_EQ(ResolvePath(file), file);
}

TEST(ServicesPlatform, SeesFilesAndNoFolders) {
    const pavane_test::TemporaryFolder folder(u"caf\u00E9 \u65E5\u672C");
    const std::string path = Utf8(folder.Path());
    EXPECT_FALSE(IsExistingFile(path));
    EXPECT_FALSE(IsExistingFile(path + "\\a.txt"));
    WriteBytes(folder / "a.txt", "a");
    EXPECT_TRUE(IsExistingFile(path + "\\a.txt"));
    EXPECT_FALSE(IsExistingFile(path + "\\\xFF.txt")) << "no UTF-8";
    EXPECT_FALSE(IsExistingFile(""));
}

TEST(ServicesPlatform, MakesPathsAbsoluteUpTo1024Units) {
    EXPECT_EQ(ResolvePath("C:\\one\\.\\two\\..\\three"), "C:\\one\\three");
    EXPECT_EQ(ResolvePath("a.dll"), WorkingDirectory() + "\\a.dll");
    EXPECT_EQ(ResolvePath(""), "");
    EXPECT_EQ(ResolvePath("\xFF"), "");
    const std::string longest = "C:\\" + std::string(kServicePathLimit - 3, 'a');
    EXPECT_EQ(ResolvePath(longest), longest);
    EXPECT_EQ(ResolvePath(longest + "a"), "");
    std::string accents = "C:\\";
    for (std::size_t i = 3; i < kServicePathLimit; ++i) accents += "\xC3\xA9";
    EXPECT_EQ(ResolvePath(accents), accents) << "2048 bytes, 1024 units";
}

// The length of the path that the system is made to name, in units.
std::size_t gLength = 0;

wchar_t* NameDirectory(wchar_t* path, int capacity) {
    if (gLength >= static_cast<std::size_t>(capacity)) {
        errno = ERANGE;
        return nullptr;
    }
    std::fill_n(path, gLength, L'a');
    path[gLength] = L'\0';
    return path;
}

DWORD WINAPI NameModule(HMODULE, wchar_t* path, DWORD capacity) {
    const std::size_t written = std::min<std::size_t>(gLength, capacity - 1);
    std::fill_n(path, written, L'a');
    path[written] = L'\0';
    return written < gLength ? capacity : static_cast<DWORD>(gLength);
}

TEST(ServicesPlatform, TakesPathsOfUpTo1024UnitsFromTheSystem) {
    const pavane_test::PatchedImport directory("_wgetcwd", &NameDirectory);
    const pavane_test::PatchedImport module("GetModuleFileNameW", &NameModule);
    ASSERT_TRUE(directory.IsPatched() && module.IsPatched());
    gLength = 1024;
    EXPECT_EQ(WorkingDirectory(), std::string(1024, 'a'));
    EXPECT_EQ(ModuleFile(), std::string(1024, 'a'));
    gLength = 1025;
    EXPECT_EQ(WorkingDirectory(), "");
    EXPECT_EQ(ModuleFile(), "");
    gLength = 0;
    EXPECT_EQ(ModuleFile(), "");
}

TEST(ServicesPlatform, HasOnePlaceForAFolder) {
    const pavane_test::TemporaryFolder folder;
    const std::string path = Utf8(folder.Path());
    std::filesystem::create_directories(folder / "inside");
    const FolderPlace place = PlaceOf(path);
    EXPECT_NE(place.path, "");
    EXPECT_FALSE(place.isOnNetworkDrive);
    EXPECT_EQ(PlaceOf(path + "\\").path, place.path);
    EXPECT_EQ(PlaceOf(path + "\\inside\\..").path, place.path);
    EXPECT_EQ(PlaceOf(path + "\\inside").path, place.path + "\\inside");
    EXPECT_EQ(PlaceOf(path + "\\nothing").path, "");
    EXPECT_EQ(PlaceOf("").path, "");
}

TEST(ServicesPlatform, KnowsADriveOfTheNetwork) {
    ASSERT_EQ(GetDriveTypeW(L"N:\\"), UINT(DRIVE_REMOTE)) << "scripts/wine_prefix makes this drive";
    EXPECT_TRUE(PlaceOf("N:\\").isOnNetworkDrive);
    std::filesystem::create_directories("N:\\below");
    EXPECT_TRUE(PlaceOf("N:\\below").isOnNetworkDrive);
    EXPECT_FALSE(PlaceOf("C:\\windows").isOnNetworkDrive);
    std::filesystem::remove("N:\\below");
}

// In place of the system: says that a link leads to the drive N:.
DWORD WINAPI NamePlaceOnANetworkDrive(HANDLE, wchar_t* path, DWORD, DWORD) {
    constexpr std::wstring_view kPlace = L"N:\\";
    path[kPlace.copy(path, kPlace.size())] = L'\0';
    return static_cast<DWORD>(kPlace.size());
}

TEST(ServicesPlatform, KnowsALinkToADriveOfTheNetwork) {
    const pavane_test::PatchedImport place("GetFinalPathNameByHandleW", &NamePlaceOnANetworkDrive);
    ASSERT_TRUE(place.IsPatched());
    EXPECT_EQ(PlaceOf("C:\\windows").path, "N:\\");
    EXPECT_TRUE(PlaceOf("C:\\windows").isOnNetworkDrive);
}

TEST(ServicesPlatform, LoadsNothingThatIsNoLibrary) {
    EXPECT_EQ(LoadModule(""), nullptr);
    EXPECT_EQ(LoadModule("C:\\nothing\\a.dll"), nullptr);
    EXPECT_EQ(LoadModule("\xFF"), nullptr);
}

TEST(ServicesPlatform, HasANumberForEachThread) {
    const auto ofThread = [](void* other) -> DWORD {
        *static_cast<std::uint32_t*>(other) = CurrentThreadNumber();
        return 0;
    };
    std::uint32_t other = CurrentThreadNumber();
    EXPECT_EQ(CurrentThreadNumber(), other);
    const HANDLE thread = CreateThread(nullptr, 0, ofThread, &other, 0, nullptr);
    WaitForSingleObject(thread, INFINITE);
    CloseHandle(thread);
    EXPECT_NE(CurrentThreadNumber(), other);
}

TEST(LoaderVersion, IsInTheFileOfTheLibraryOnce) {
    const std::string bytes = BytesOf("pavane.dll");
    const std::string_view version = kServiceLoaderVersion;
    const auto found = std::search(bytes.begin(), bytes.end(), version.begin(), version.end());
    ASSERT_NE(found, bytes.end());
    EXPECT_EQ(std::search(found + 1, bytes.end(), version.begin(), version.end()), bytes.end());
    EXPECT_EQ(*(found + static_cast<std::ptrdiff_t>(version.size())), '\0');
}

} // namespace
} // namespace brixen::pvn
