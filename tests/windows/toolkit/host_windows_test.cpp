// A modal run among windows of the host whose procedures throw, destroy and quit, and that other threads send
// to.
#include "toolkit/dialog/abandon_dialogs.h"
#include "toolkit/dialog/modal_run.h"
#include "toolkit/dialog/zeve_dialog.h"
#include "toolkit/platform/toolkit_platform.h"

#include <gtest/gtest.h>

#include <windows.h>

#include <cstdint>
#include <functional>
#include <stdexcept>
#include <utility>

namespace brixen::zeve {
namespace {

constexpr DWORD kForeignException = 0xE06D7363; // of another compiler
constexpr char kView[] = "dialog(name: 'Dialog', width: 200) {"
                         "  button(name: 'First', view_id: 1);"
                         "  button(name: 'Second', view_id: 2);"
                         "}";

void RaiseForeign() { RaiseException(kForeignException, EXCEPTION_NONCONTINUABLE, 0, nullptr); }

class HostWindow : public ::testing::Test {
protected:
    HostWindow() {
        gTest = this;
        ZeveInitialize();
        host = CreateWindowExW(0, L"static", L"Host", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 400, 300,
                               nullptr, nullptr, nullptr, nullptr);
        formerProcedure = reinterpret_cast<WNDPROC>(
            SetWindowLongPtrW(host, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&HostProcedure)));
        ZeveInitRecord record;
        record.callback = &HostWindow::Hear;
        record.instance = platform::LibraryModule();
        record.parentWindow = reinterpret_cast<NativeWindow>(host);
        dialog = ZeveNew(&record);
        ZeveAddViewText(dialog, kView);
        window = reinterpret_cast<HWND>(ZeveMakeDialog(dialog, this));
    }
    ~HostWindow() override {
        ZeveDelete(dialog);
        DestroyWindow(host);
        gTest = nullptr;
    }

    // Runs until the first button ends the run, unless the host ends it before.
    bool Run() {
        PostMessageW(window, WM_COMMAND, 1, 0);
        return RunWithoutUser();
    }
    bool RunWithoutUser() {
        const UINT_PTR watchdog = SetTimer(nullptr, 0, 5000, [](HWND, UINT, UINT_PTR, DWORD) {
            ADD_FAILURE() << "the run did not end";
            DestroyWindow(gTest->window);
        });
        bool isPositive = false;
        try {
            isPositive = ZeveRunModal(dialog);
        } catch (...) {
            KillTimer(nullptr, watchdog);
            throw;
        }
        KillTimer(nullptr, watchdog);
        return isPositive;
    }
    void ExpectTheNextRunToWork() {
        atMessage = nullptr;
        EXPECT_TRUE(IsWindowEnabled(host));
        EXPECT_FALSE(IsModalRunUnderWay());
        // A removed WM_PAINT that nothing handles would be in the queue again.
        for (MSG left; PeekMessageW(&left, nullptr, 0, 0, PM_REMOVE);) DispatchMessageW(&left);
        EXPECT_TRUE(Run());
    }

    HWND host = nullptr, window = nullptr;
    ZeveDialog* dialog = nullptr;
    std::function<void(UINT message, WPARAM wparam)> atMessage; // of the host's window

private:
    static LRESULT CALLBACK HostProcedure(HWND handle, UINT message, WPARAM wparam, LPARAM lparam) {
        if (gTest->atMessage) gTest->atMessage(message, wparam);
        return CallWindowProcW(gTest->formerProcedure, handle, message, wparam, lparam);
    }
    static std::uint64_t Hear(std::int32_t what, EventRecord& record, void*) {
        if (what != kWhatMessage || record.Read(kKeyEventRecord) != WM_COMMAND) return kAnswerDefault;
        return record.Read(kKeyWparam) == 1 ? kAnswerEndPositive : kAnswerEndNegative;
    }

    static inline HostWindow* gTest = nullptr;
    WNDPROC formerProcedure = nullptr;
};

// --- Exceptions of the host's own procedure ---

enum class Thrown { kStandard, kNumber, kForeign };

class HostWindowThrows : public HostWindow, public ::testing::WithParamInterface<Thrown> {
protected:
    static void Throw() {
        switch (GetParam()) {
        case Thrown::kStandard: throw std::range_error("of the host");
        case Thrown::kNumber: throw 42;
        case Thrown::kForeign: RaiseForeign();
        }
    }
};

TEST_P(HostWindowThrows, InADispatchedMessage) {
    for (int i = 0; i < 20; ++i) {
        atMessage = [](UINT message, WPARAM) {
            if (message == WM_USER) Throw();
        };
        PostMessageW(host, WM_USER, 0, 0);
        EXPECT_THROW((void)Run(), std::runtime_error);
        ExpectTheNextRunToWork();
    }
}

TEST_P(HostWindowThrows, InTheMessageThatItIsDisabledOrEnabled) {
    for (const WPARAM isActivated : {0u, 1u}) {
        // The system sends this message too, inside its own calls, where nothing can be promised.
        bool isFirst = true;
        atMessage = [&](UINT message, WPARAM wparam) {
            if (message == WM_ACTIVATE && wparam == isActivated && std::exchange(isFirst, false)) Throw();
        };
        EXPECT_THROW((void)Run(), std::runtime_error) << isActivated;
        ExpectTheNextRunToWork();
    }
}

INSTANTIATE_TEST_SUITE_P(All, HostWindowThrows,
                         ::testing::Values(Thrown::kStandard, Thrown::kNumber, Thrown::kForeign));

// --- Windows that are destroyed ---

TEST_F(HostWindow, ADialogThatIsDestroyedWhileItsParentIsDisabledEndsItsRun) {
    atMessage = [this](UINT message, WPARAM wparam) {
        if (message == WM_ACTIVATE && wparam == 0) DestroyWindow(window);
    };
    EXPECT_FALSE(RunWithoutUser());
    EXPECT_TRUE(IsWindowEnabled(host));
}

TEST_F(HostWindow, AParentThatIsDestroyedWhileItIsDisabledEndsTheRun) {
    atMessage = [this](UINT message, WPARAM) {
        if (message == WM_ENABLE) DestroyWindow(host);
    };
    EXPECT_FALSE(RunWithoutUser());
    EXPECT_FALSE(IsWindow(window));
}

// --- Quit messages of the host ---

TEST_F(HostWindow, AQuitDuringTheRunCancelsItAndWaitsForTheHostAgain) {
    for (const int code : {0, 1, 7}) {
        atMessage = [code](UINT message, WPARAM) {
            if (message == WM_USER) PostQuitMessage(code);
        };
        PostMessageW(host, WM_USER, 0, 0);
        EXPECT_FALSE(RunWithoutUser());
        MSG quit = {};
        ASSERT_TRUE(PeekMessageW(&quit, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE));
        EXPECT_EQ(quit.wParam, WPARAM(code));
        ExpectTheNextRunToWork();
    }
}

TEST_F(HostWindow, NoWindowIsShownWhileAQuitIsPending) {
    PostQuitMessage(5);
    EXPECT_FALSE(RunWithoutUser());
    EXPECT_FALSE(IsWindowVisible(window));
    MSG quit = {};
    ASSERT_TRUE(PeekMessageW(&quit, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE));
    EXPECT_EQ(quit.wParam, WPARAM(5));
    ExpectTheNextRunToWork();
}

TEST_F(HostWindow, TheRunsOwnEndLeavesNoQuit) {
    EXPECT_TRUE(Run());
    MSG left = {};
    EXPECT_FALSE(PeekMessageW(&left, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE));
    while (PeekMessageW(&left, nullptr, 0, 0, PM_REMOVE)) {
        EXPECT_NE(left.message, UINT(WM_NULL)) << "nothing woke a loop that ran";
        DispatchMessageW(&left);
    }
}

// --- Messages of other threads ---

// Sends a message to a window once the dialog has been shown and its loop waits.
class OtherThread {
public:
    OtherThread(HWND shownFirst, HWND receiver, UINT message, WPARAM wparam = 0)
        : dialog(shownFirst), receiver(receiver), message(message), wparam(wparam),
          thread(CreateThread(nullptr, 0, &OtherThread::Send, this, 0, nullptr)) {}
    OtherThread(const OtherThread&) = delete;
    OtherThread& operator=(const OtherThread&) = delete;
    ~OtherThread() {
        WaitForSingleObject(thread, INFINITE);
        CloseHandle(thread);
    }

private:
    static DWORD WINAPI Send(void* argument) {
        const auto& self = *static_cast<const OtherThread*>(argument);
        while (IsWindow(self.dialog) && !IsWindowVisible(self.dialog)) Sleep(1);
        Sleep(50); // so that the loop waits
        SendMessageW(self.receiver, self.message, self.wparam, 0);
        return 0;
    }

    HWND dialog, receiver;
    UINT message;
    WPARAM wparam;
    HANDLE thread;
};

TEST_F(HostWindow, AnAnswerToAMessageOfAnotherThreadEndsTheRun) {
    for (const WPARAM command : {1u, 2u}) {
        ShowWindow(window, SW_HIDE);
        const OtherThread sender(window, window, WM_COMMAND, command);
        EXPECT_EQ(RunWithoutUser(), command == 1);
    }
}

void RunALoopOfTheHost() {
    for (MSG message; PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE);) DispatchMessageW(&message);
}

TEST_F(HostWindow, ALoopOfItsOwnInsideASentMessageMayEndTheRun) {
    bool hasLooped = false;
    atMessage = [&](UINT message, WPARAM) {
        if (message != WM_USER) return;
        PostMessageW(window, WM_COMMAND, 1, 0);
        RunALoopOfTheHost();
        hasLooped = true;
    };
    {
        const OtherThread sender(window, host, WM_USER);
        EXPECT_TRUE(RunWithoutUser());
    }
    EXPECT_TRUE(hasLooped);
    ExpectTheNextRunToWork();
}

TEST_F(HostWindow, ARunInsideASentMessageThatEndsTheOuterOneEndsBoth) {
    atMessage = [&](UINT message, WPARAM) {
        if (message != WM_USER) return;
        ZeveInitRecord record;
        record.instance = platform::LibraryModule();
        ZeveDialog* inner = ZeveNew(&record);
        ZeveAddViewText(inner, kView);
        ASSERT_NE(ZeveMakeDialog(inner, nullptr), nullptr);
        PostMessageW(window, WM_COMMAND, 1, 0);
        EXPECT_FALSE(ZeveRunModal(inner));
        ZeveDelete(inner);
    };
    {
        const OtherThread sender(window, host, WM_USER);
        EXPECT_TRUE(RunWithoutUser());
    }
    ExpectTheNextRunToWork();
}

TEST_F(HostWindow, ARunThatWaitsUsesNoProcessor) {
    const auto used = [] {
        FILETIME made, ended, kernel, user;
        GetThreadTimes(GetCurrentThread(), &made, &ended, &kernel, &user);
        return std::uint64_t(kernel.dwLowDateTime) + user.dwLowDateTime; // 100 ns, over seconds only
    };
    std::uint64_t before = 0;
    atMessage = [&](UINT message, WPARAM timer) {
        if (message != WM_TIMER) return;
        KillTimer(host, timer);
        if (timer == 2) PostMessageW(window, WM_COMMAND, 1, 0);
        if (timer == 1) before = used();
    };
    SetTimer(host, 1, 300, nullptr); // the dialog has been painted by then
    SetTimer(host, 2, 1300, nullptr);
    EXPECT_TRUE(RunWithoutUser());
    EXPECT_LT(used() - before, 2'500'000u) << "of a second";
}

TEST_F(HostWindow, ALockOfItsOwnOutlivesARunOfOursAndItsEnd) {
    const auto isLocked = [] {
        // The system has one lock: a second is refused.
        const bool wasFree = LockWindowUpdate(GetDesktopWindow()) != FALSE;
        if (wasFree) LockWindowUpdate(nullptr);
        return !wasFree;
    };
    ASSERT_FALSE(isLocked());
    ASSERT_TRUE(LockWindowUpdate(host));
    platform::LockUpdates(reinterpret_cast<NativeWindow>(window));
    platform::UnlockUpdates();
    AbandonDialogs();
    EXPECT_TRUE(isLocked());
    LockWindowUpdate(nullptr);
    platform::LockUpdates(reinterpret_cast<NativeWindow>(host));
    EXPECT_TRUE(isLocked());
    AbandonDialogs();
    EXPECT_FALSE(isLocked());
}

TEST_F(HostWindow, NoDialogHasNoRun) {
    try {
        (void)ZeveRunModal(nullptr);
        ADD_FAILURE() << "it must throw";
    } catch (const std::logic_error& error) {
        EXPECT_STREQ(error.what(), "nil pointer");
    }
}

// --- The owner ---

TEST_F(HostWindow, OnlyTheRootOfAControlIsDisabledAndOneThatWasDisabledStaysSo) {
    EnableWindow(host, FALSE);
    EXPECT_TRUE(Run());
    EXPECT_FALSE(IsWindowEnabled(host));
    EnableWindow(host, TRUE);
    const HWND control = CreateWindowExW(0, L"button", L"", WS_CHILD | WS_VISIBLE, 0, 0, 50, 20, host,
                                         nullptr, nullptr, nullptr);
    EXPECT_EQ(platform::OwnerOfDialog(reinterpret_cast<NativeWindow>(control)),
              reinterpret_cast<NativeWindow>(host));
    EXPECT_EQ(platform::OwnerOfDialog(reinterpret_cast<NativeWindow>(GetDesktopWindow())), nullptr);
}

} // namespace
} // namespace brixen::zeve
