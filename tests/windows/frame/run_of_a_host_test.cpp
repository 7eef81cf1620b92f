// The workflows as a host runs them, with their real dialogs, and each way in which the run can end inside a
// window procedure of the host.
#include "frame/exports/run_mark.h"
#include "frame/frame_state.h"
#include "pavane.h"
#include "windows/dpi_of_thread.h"
#include "windows/frame/host_catch.h"

#include <gtest/gtest.h>

#include <windows.h>

#include <cwchar>
#include <functional>
#include <stdexcept>
#include <string>

namespace brixen::pvn {
namespace {

using pavane_test::DpiAwareness;
using pavane_test::DpiAwarenessOf;
using pavane_test::DpiAwarenessOfThread;

BOOL CALLBACK TakeDialog(HWND window, LPARAM result) {
    wchar_t name[20] = {};
    GetClassNameW(window, name, 20);
    if (!IsWindowVisible(window) || std::wcscmp(name, L"#32770") != 0) return TRUE;
    *reinterpret_cast<HWND*>(result) = window;
    return FALSE;
}

// The dialog that is shown on this thread, or null.
HWND ShownDialog() {
    HWND dialog = nullptr;
    EnumThreadWindows(GetCurrentThreadId(), TakeDialog, reinterpret_cast<LPARAM>(&dialog));
    return dialog;
}

class RunOfAHost : public testing::Test {
protected:
    RunOfAHost() {
        gTest = this;
        ResetFrameState();
        host = CreateWindowExW(0, L"static", L"Host", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 400, 300,
                               nullptr, nullptr, nullptr, nullptr);
        formerProcedure = reinterpret_cast<WNDPROC>(
            SetWindowLongPtrW(host, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&HostProcedure)));
        EXPECT_EQ(Pavane_Initialize(0, PAVANE_HOST_OPTIONS(0x0409, 0)), PAVANE_SUCCESS);
    }
    ~RunOfAHost() override {
        Pavane_Terminate();
        DestroyWindow(host);
        ResetFrameState();
        gTest = nullptr;
    }

    // Runs a workflow. Once its dialog is shown, the host's window procedure executes `inside`.
    std::uint16_t Run(std::function<void()> inside, std::uint16_t workflow = PAVANE_WORKFLOW_WELCOME) {
        insideRun = std::move(inside);
        ticks = 0;
        SetTimer(host, kTimer, 20, nullptr);
        return Pavane_RunWorkflow(workflow, host);
    }
    static void Cancel() { DestroyWindow(ShownDialog()); }

    void ExpectNothingLeftOfTheRun() const {
        EXPECT_TRUE(IsWindowEnabled(host));
        EXPECT_EQ(ShownDialog(), nullptr);
        EXPECT_FALSE(IsRunUnderWay());
        EXPECT_EQ(DpiAwarenessOfThread(), DpiAwareness::kPerMonitor);
    }

private:
    static constexpr UINT_PTR kTimer = 1;

    static LRESULT CALLBACK HostProcedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
        if (message == WM_TIMER) gTest->LookForTheDialog();
        return CallWindowProcW(gTest->formerProcedure, window, message, wparam, lparam);
    }
    void LookForTheDialog() {
        if (ShownDialog() == nullptr && ++ticks < 500) return;
        KillTimer(host, kTimer);
        if (ShownDialog() != nullptr) return insideRun();
        ADD_FAILURE() << "no dialog is shown";
        PostQuitMessage(0);
    }

    static inline RunOfAHost* gTest = nullptr;
    const pavane_test::PerMonitorAwareHost awareness;
    HWND host = nullptr;
    WNDPROC formerProcedure = nullptr;
    std::function<void()> insideRun;
    int ticks = 0;
};

TEST_F(RunOfAHost, HasADialogThatKnowsNoResolutionAndLeavesTheHostItsOwn) {
    auto ofDialog = DpiAwareness::kPerMonitor, ofHost = DpiAwareness::kUnaware;
    const auto look = [&] {
        ofDialog = DpiAwarenessOf(ShownDialog());
        ofHost = DpiAwarenessOfThread(); // in its procedure
        Cancel();
    };
    EXPECT_EQ(Run(look), PAVANE_USER_CANCEL);
    EXPECT_EQ(ofDialog, DpiAwareness::kUnaware);
    EXPECT_EQ(ofHost, DpiAwareness::kPerMonitor);
    ExpectNothingLeftOfTheRun();
}

TEST_F(RunOfAHost, EndsByAnExceptionOfAnyCppCompilerAndTheNextOneWorks) {
    const std::function<void()> throwing[] = {
        [] { throw std::runtime_error("of the host"); },
        [] { throw 42; },
        [] { host_catch::Raise(0xE06D7363); },
    };
    for (const auto& inside : throwing) {
        EXPECT_EQ(Run(inside), PAVANE_EXCEPTION);
        ExpectNothingLeftOfTheRun();
        EXPECT_EQ(Run(Cancel), PAVANE_USER_CANCEL);
        ExpectNothingLeftOfTheRun();
    }
}

TEST_F(RunOfAHost, IsUndoneBeforeTheHostCatchesAStructuredExceptionAndTheNextOneWorks) {
    for (const DWORD code : {DWORD(0xE0001234), DWORD(EXCEPTION_ACCESS_VIOLATION)}) {
        const auto run = [&] { (void)Run([code] { host_catch::Raise(code); }); };
        EXPECT_EQ(host_catch::CodeCaughtFrom(run), code);
        EXPECT_EQ(Pavane_Info_GetErrorCode(), PAVANE_EXCEPTION);
        ExpectNothingLeftOfTheRun();
        if (HasFailure()) return; // the next run would meet what is left
        EXPECT_EQ(Run(Cancel), PAVANE_USER_CANCEL);
        ExpectNothingLeftOfTheRun();
    }
}

TEST_F(RunOfAHost, ShowsNoCloseBoxThatDoesNothing) {
    for (const auto workflow :
         {std::uint16_t(PAVANE_WORKFLOW_WELCOME), std::uint16_t(PAVANE_WORKFLOW_PRIVACY)}) {
        LONG_PTR style = WS_SYSMENU;
        const auto read = [&style] {
            style = GetWindowLongPtrW(ShownDialog(), GWL_STYLE);
            Cancel();
        };
        EXPECT_EQ(Run(read, workflow), PAVANE_USER_CANCEL);
        EXPECT_EQ(style & WS_SYSMENU, 0) << workflow;
    }
}

} // namespace
} // namespace brixen::pvn
