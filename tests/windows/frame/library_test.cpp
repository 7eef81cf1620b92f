// The finished library as a file: version, manifest, loading and unloading.
#include "frame/version.h"
#include "pavane.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <windows.h>

#include <memory>
#include <string_view>
#include <vector>

namespace brixen::pvn {
namespace {

constexpr wchar_t kLibrary[] = L"pavane.dll";

struct ModuleDeleter {
    using pointer = HMODULE;
    void operator()(HMODULE module) const { FreeLibrary(module); }
};
using Module = std::unique_ptr<HMODULE, ModuleDeleter>;

class VersionInfo {
public:
    VersionInfo() : bytes(GetFileVersionInfoSizeW(kLibrary, nullptr)) {
        GetFileVersionInfoW(kLibrary, 0, static_cast<DWORD>(bytes.size()), bytes.data());
    }
    template <class Value>
    const Value* Find(const wchar_t* path) {
        void* value = nullptr;
        UINT length = 0;
        return VerQueryValueW(bytes.data(), path, &value, &length) ? static_cast<const Value*>(value)
                                                                   : nullptr;
    }

private:
    std::vector<char> bytes;
};

TEST(LibraryVersion, IsThatOfTheVersionWord) {
    VersionInfo version;
    const auto* fixed = version.Find<VS_FIXEDFILEINFO>(L"\\");
    ASSERT_NE(fixed, nullptr);
    EXPECT_EQ(HIWORD(fixed->dwFileVersionMS), 3);
    EXPECT_EQ(LOWORD(fixed->dwFileVersionMS), 0);
    EXPECT_EQ(HIWORD(fixed->dwFileVersionLS), 11);
    EXPECT_EQ(LOWORD(fixed->dwFileVersionLS), 10077);
    EXPECT_EQ(fixed->dwProductVersionMS, fixed->dwFileVersionMS);
    EXPECT_EQ(fixed->dwProductVersionLS, fixed->dwFileVersionLS);
}

TEST(LibraryVersion, IsInTheVersionTextsToo) {
    const std::wstring wanted(std::begin(kVersionText), std::end(kVersionText) - 1);
    VersionInfo version;
    for (const wchar_t* name : {L"FileVersion", L"ProductVersion"}) {
        const std::wstring path = std::wstring(L"\\StringFileInfo\\040904b0\\") + name;
        const auto* text = version.Find<wchar_t>(path.c_str());
        ASSERT_NE(text, nullptr);
        EXPECT_EQ(text, wanted);
    }
}

TEST(LibraryManifest, IsResource3AndAsksForVersion6OfTheCommonControls) {
    const Module library(LoadLibraryW(kLibrary));
    ASSERT_TRUE(library) << GetLastError();
    const HRSRC place = FindResourceW(library.get(), MAKEINTRESOURCEW(3), MAKEINTRESOURCEW(24));
    ASSERT_NE(place, nullptr);
    const std::string_view text(static_cast<const char*>(LockResource(LoadResource(library.get(), place))),
                                SizeofResource(library.get(), place));
    EXPECT_THAT(text, testing::HasSubstr("name=\"Microsoft.Windows.Common-Controls\" version=\"6.0.0.0\""));
}

TEST(LibraryManifest, IsTheOnlyOne) {
    const Module library(LoadLibraryW(kLibrary));
    ASSERT_TRUE(library) << GetLastError();
    const auto count = [](HMODULE, LPCWSTR, LPWSTR, LONG_PTR number) -> BOOL {
        ++*reinterpret_cast<int*>(number);
        return TRUE;
    };
    int manifests = 0;
    EnumResourceNamesW(library.get(), MAKEINTRESOURCEW(24), count, reinterpret_cast<LONG_PTR>(&manifests));
    EXPECT_EQ(manifests, 1);
}

template <class Function>
Function Find(const Module& library, const char* name) {
    return reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(library.get(), name)));
}

TEST(LibraryLoading, TheFirstSuccessfulInitializeKeepsItUntilTheProcessEnds) {
    {
        const Module library(LoadLibraryW(kLibrary));
        ASSERT_TRUE(library) << GetLastError();
        EXPECT_EQ(Find<PavaneGetVersionFunction>(library, "Pavane_GetVersion")(), PAVANE_VERSION);
        EXPECT_EQ(Find<PavaneInitializeFunction>(library, "Pavane_Initialize")(2, 0), PAVANE_BAD_ARGUMENT);
    }
    EXPECT_EQ(GetModuleHandleW(kLibrary), nullptr) << "a refused call does not pin it";
    for (int i = 0; i < 2; ++i) {
        const Module library(LoadLibraryW(kLibrary));
        ASSERT_TRUE(library) << GetLastError();
        EXPECT_EQ(Find<PavaneInitializeFunction>(library, "Pavane_Initialize")(0, 0), PAVANE_SUCCESS);
        EXPECT_EQ(Find<PavaneInfoGetErrorCodeFunction>(library, "Pavane_Info_GetErrorCode")(),
                  PAVANE_SUCCESS);
        Find<PavaneTerminateFunction>(library, "Pavane_Terminate")();
    }
    EXPECT_NE(GetModuleHandleW(kLibrary), nullptr);
}

// A thread-local index that the library does not free is lost to the whole process, which has 1,088.
TEST(LibraryLoading, ThreeThousandRoundsLeakNoThreadLocalIndex) {
    for (int i = 0; i < 3000; ++i) {
        const Module library(LoadLibraryW(kLibrary));
        ASSERT_TRUE(library) << GetLastError() << " in round " << i;
        ASSERT_EQ(Find<PavaneInitializeFunction>(library, "Pavane_Initialize")(0, 0), PAVANE_SUCCESS);
        Find<PavaneTerminateFunction>(library, "Pavane_Terminate")();
    }
    const DWORD index = TlsAlloc();
    EXPECT_NE(index, TLS_OUT_OF_INDEXES);
    TlsFree(index);
}

} // namespace
} // namespace brixen::pvn
