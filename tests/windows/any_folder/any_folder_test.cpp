// The library as a user may install it: renamed, in a folder whose name the process's code page lacks.
#include "pavane.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <windows.h>

#include <filesystem>
#include <memory>

namespace {

namespace files = std::filesystem;

const files::path kFolderName = L"\u05EA\u05D9\u05E7\u05D9\u05D9\u05D4 \u65E5\u672C\u8A9E \u0E17\u0E14";
const files::path kFileName = L"\u05E8\u05D9\u05E7\u05D5\u05D3.dll";

files::path ProgramFolder() {
    wchar_t path[MAX_PATH] = {};
    GetModuleFileNameW(nullptr, path, MAX_PATH);
    return files::path(path).parent_path();
}

// A copy of the installed files, deleted with the object.
class Installation {
public:
    Installation() {
        files::copy_file(ProgramFolder() / "pavane.dll", folder / kFileName);
        files::copy(ProgramFolder() / "PVResources", folder / "PVResources", files::copy_options::recursive);
    }
    files::path Resources() const { return folder / "PVResources"; }
    files::path Library() const { return folder / kFileName; }

private:
    const pavane_test::TemporaryFolder folder{kFolderName.u16string()};
};

struct ModuleDeleter {
    using pointer = HMODULE;
    void operator()(HMODULE module) const { FreeLibrary(module); }
};
using Module = std::unique_ptr<HMODULE, ModuleDeleter>;

template <class Function>
Function* Exported(const Module& module, const char* name) {
    return reinterpret_cast<Function*>(reinterpret_cast<void*>(GetProcAddress(module.get(), name)));
}

// The record of the walk through the dialog.
struct Walk {
    int titlesSeen = 0;
    std::wstring lastTitle;
    int ticks = 0;
} gWalk;

BOOL CALLBACK PressDefault(HWND control, LPARAM) {
    const LONG style = GetWindowLongW(control, GWL_STYLE);
    wchar_t className[20] = {};
    GetClassNameW(control, className, 20);
    if (_wcsicmp(className, L"Button") != 0 || (style & BS_TYPEMASK) != BS_DEFPUSHBUTTON ||
        !IsWindowVisible(control))
        return TRUE;
    PostMessageW(control, BM_CLICK, 0, 0);
    return FALSE;
}

BOOL CALLBACK WalkDialog(HWND window, LPARAM) {
    wchar_t title[200] = {};
    GetWindowTextW(window, title, 200);
    if (!IsWindowVisible(window) || gWalk.lastTitle == title) return TRUE;
    gWalk.lastTitle = title;
    ++gWalk.titlesSeen;
    EnumChildWindows(window, PressDefault, 0);
    return FALSE;
}

// The run's own message loop dispatches this timer. A walk that does not end within 20 s is canceled, and the
// test fails because of the status.
void CALLBACK Tick(HWND, UINT, UINT_PTR, DWORD) {
    if (++gWalk.ticks > 400) PostQuitMessage(0);
    EnumThreadWindows(GetCurrentThreadId(), WalkDialog, 0);
}

std::uint16_t RunWelcome(const Module& library) {
    gWalk = {};
    const UINT_PTR timer = SetTimer(nullptr, 0, 50, Tick);
    const std::uint16_t status = Exported<decltype(Pavane_RunWorkflow)>(library, "Pavane_RunWorkflow")(
        PAVANE_WORKFLOW_WELCOME, nullptr);
    KillTimer(nullptr, timer);
    return status;
}

} // namespace

TEST(AnyFolder, TheNamesAreOutsideTheCodePage) {
    BOOL replaced = FALSE;
    WideCharToMultiByte(CP_ACP, WC_NO_BEST_FIT_CHARS, kFolderName.c_str(), -1, nullptr, 0, nullptr,
                        &replaced);
    EXPECT_TRUE(replaced);
}

TEST(AnyFolder, ARenamedLibraryFindsItsResourcesAndRuns) {
    const Installation installation;
    const Module library(LoadLibraryW(installation.Library().c_str()));
    ASSERT_TRUE(library) << GetLastError();
    ASSERT_EQ(Exported<decltype(Pavane_Initialize)>(library,
                                                    "Pavane_Initialize")(1, PAVANE_HOST_OPTIONS(0x0409, 0)),
              PAVANE_SUCCESS);
    EXPECT_EQ(RunWelcome(library), PAVANE_SUCCESS);
    EXPECT_EQ(gWalk.titlesSeen, 3);
    EXPECT_EQ(gWalk.lastTitle, L"Getting started: Everything is ready")
        << "in the words of that folder's dictionary";

    files::remove(installation.Resources() / "welcome.exv");
    EXPECT_EQ(RunWelcome(library), PAVANE_EXCEPTION) << "it searches no other folder";
    Exported<decltype(Pavane_Terminate)>(library, "Pavane_Terminate")();
}
