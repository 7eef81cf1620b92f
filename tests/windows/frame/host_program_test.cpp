// The version resource of the host (see host_program.rc) as the library reads it.
#include "frame/platform/frame_platform.h"

#include "windows/toolkit/patched_import.h"

#include <gtest/gtest.h>

#include <windows.h>

#include <algorithm>
#include <string>

namespace brixen::pvn {
namespace {

TEST(HostProgram, ReturnsTheTextsOfTheFirstLanguage) {
    const HostProgram host = DescribeHostProgram();
    EXPECT_EQ(host.productName, "M\u00e4rchen \u65e5");
    EXPECT_EQ(host.fileDescription, "Zeichnen und \u05db");
    EXPECT_EQ(host.fileName, "windows_frame.exe");
}

// A path of 1,000 units, which the system cuts at the end of a shorter buffer.
DWORD WINAPI NameProgramDeepInside(HMODULE, wchar_t* path, DWORD capacity) {
    const std::wstring full = L"C:" + std::wstring(990, L'\\') + L"host.exe";
    const std::size_t written = std::min<std::size_t>(full.size(), capacity - 1);
    std::copy_n(full.data(), written, path);
    path[written] = L'\0';
    return written < full.size() ? capacity : static_cast<DWORD>(written);
}

TEST(HostProgram, MayHaveALongPath) {
    const pavane_test::PatchedImport path("GetModuleFileNameW", &NameProgramDeepInside);
    ASSERT_TRUE(path.IsPatched());
    EXPECT_EQ(DescribeHostProgram().fileName, "host.exe");
}

// A resource of 64 bytes without a terminator, whose texts claim to be longer.
constexpr DWORD kResourceSize = 64;

DWORD WINAPI GiveResourceSize(const wchar_t*, DWORD*) { return kResourceSize; }
BOOL WINAPI GiveResource(const wchar_t*, DWORD, DWORD, void* resource) {
    std::fill_n(static_cast<wchar_t*>(resource), kResourceSize / sizeof(wchar_t), L'a');
    return TRUE;
}
BOOL WINAPI GiveValue(const void* resource, const wchar_t*, void** value, UINT* length) {
    *value = static_cast<wchar_t*>(const_cast<void*>(resource)) + kResourceSize / sizeof(wchar_t) - 2;
    *length = 1000;
    return TRUE;
}

TEST(HostProgram, HasNoTextBeyondItsResource) {
    const pavane_test::PatchedImport size("GetFileVersionInfoSizeW", &GiveResourceSize);
    const pavane_test::PatchedImport resource("GetFileVersionInfoW", &GiveResource);
    const pavane_test::PatchedImport value("VerQueryValueW", &GiveValue);
    ASSERT_TRUE(size.IsPatched() && resource.IsPatched() && value.IsPatched());
    EXPECT_EQ(DescribeHostProgram().productName, "aa");
}

} // namespace
} // namespace brixen::pvn
