// The finished library in a program that sends its dialog any message at any moment from any thread, and that
// destroys windows during a run. In each case the run ends, the parent can be used again, and the next run
// works.
#include "pavane.h"

#include <gtest/gtest.h>

#include <windows.h>

#include <atomic>
#include <functional>
#include <iterator>
#include <memory>
#include <random>
#include <utility>
#include <vector>

namespace {

// Returns the dialog that the thread shows: the Welcome workflow's, or an alert above it.
HWND DialogOf(DWORD thread) {
    HWND found = nullptr;
    EnumThreadWindows(
        thread,
        [](HWND window, LPARAM result) -> BOOL {
            wchar_t className[20] = {};
            GetClassNameW(window, className, 20);
            if (wcscmp(className, L"#32770") != 0 || !IsWindowVisible(window) || !IsWindowEnabled(window))
                return TRUE;
            *reinterpret_cast<HWND*>(result) = window;
            return FALSE;
        },
        reinterpret_cast<LPARAM>(&found));
    return found;
}

BOOL CALLBACK PressFirst(HWND control, LPARAM) {
    wchar_t className[20] = {};
    GetClassNameW(control, className, 20);
    if (_wcsicmp(className, L"Button") != 0 || !IsWindowVisible(control)) return TRUE;
    PostMessageW(control, BM_CLICK, 0, 0);
    return FALSE;
}

// Leads the dialog to the workflow's end, or leaves an alert by any answer. Strange messages may have made
// any button or none the default one, and may have shown more buttons than the pane has.
void LeadOn(HWND dialog) {
    constexpr int kDone = 13, kContinue = 12;
    bool isWorkflow = false;
    for (const int id : {kDone, kContinue}) {
        const HWND button = GetDlgItem(dialog, id);
        if (!IsWindowVisible(button)) continue;
        PostMessageW(button, BM_CLICK, 0, 0);
        isWorkflow = true;
    }
    if (!isWorkflow) EnumChildWindows(dialog, PressFirst, 0);
}

class HostileMessages : public ::testing::Test {
protected:
    using Attack = std::function<void(std::mt19937& random, HWND dialog)>;

    HostileMessages() {
        const auto initialize = Exported<decltype(Pavane_Initialize)>("Pavane_Initialize");
        EXPECT_EQ(initialize(1, PAVANE_HOST_OPTIONS(0x0409, 0)), PAVANE_SUCCESS);
        gTest = this;
        parent = CreateWindowExW(0, L"static", L"Host", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 400, 300,
                                 nullptr, nullptr, nullptr, nullptr);
    }
    ~HostileMessages() override {
        DestroyWindow(parent);
        gTest = nullptr;
        Exported<decltype(Pavane_Terminate)>("Pavane_Terminate")();
        FreeLibrary(library);
    }

    template <class Function>
    Function* Exported(const char* name) const {
        return reinterpret_cast<Function*>(reinterpret_cast<void*>(GetProcAddress(library, name)));
    }

    // A message for a window that is gone, or for the run's loop, must not reach the next run.
    static void HandleRemainingMessages() {
        for (MSG message; PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE);) DispatchMessageW(&message);
    }

    std::uint16_t Run() {
        ticks = 0;
        const UINT_PTR timer = SetTimer(nullptr, 0, 10, Tick);
        const auto run = Exported<decltype(Pavane_RunWorkflow)>("Pavane_RunWorkflow");
        const std::uint16_t status = run(PAVANE_WORKFLOW_WELCOME, parent);
        KillTimer(nullptr, timer);
        HandleRemainingMessages();
        EXPECT_LT(ticks, kMostTicks) << "the run did not end";
        return status;
    }

    // Expects an undisturbed run to succeed.
    void ExpectAllWell() {
        EXPECT_TRUE(!IsWindow(parent) || IsWindowEnabled(parent));
        attacking = false;
        EXPECT_EQ(Run(), PAVANE_SUCCESS);
    }

    // Runs while another thread calls `attack` again and again, until it has made its rounds or the run has
    // ended.
    void RunUnderAttack(unsigned seed, int rounds, Attack attack) {
        struct Attacker {
            HostileMessages& test;
            unsigned seed;
            int rounds;
            Attack attack;
        } attacker{*this, seed, rounds, std::move(attack)};
        hasEnded = false;
        attacking = true;
        const auto begin = [](void* parameter) -> DWORD {
            auto& self = *static_cast<Attacker*>(parameter);
            std::mt19937 random(self.seed);
            for (int round = 0; round < self.rounds && !self.test.hasEnded;) {
                if (const HWND dialog = DialogOf(self.test.thread)) {
                    self.attack(random, dialog);
                    ++round;
                } else {
                    Sleep(1);
                }
            }
            self.test.attacking = false;
            return 0;
        };
        const HANDLE other = CreateThread(nullptr, 0, begin, &attacker, 0, nullptr);
        Run();
        hasEnded = true;
        // It may be waiting for the answer to a message.
        while (MsgWaitForMultipleObjects(1, &other, FALSE, INFINITE, QS_ALLINPUT) != WAIT_OBJECT_0)
            HandleRemainingMessages();
        CloseHandle(other);
    }

    HWND parent = nullptr;
    std::function<void()> atTick; // on the run's own thread

private:
    static constexpr int kMostTicks = 1000; // without an attack

    static void CALLBACK Tick(HWND, UINT, UINT_PTR, DWORD) {
        HostileMessages& test = *gTest;
        if (!test.attacking && ++test.ticks >= kMostTicks) PostQuitMessage(0);
        if (test.atTick) test.atTick();
        const HWND dialog = DialogOf(GetCurrentThreadId());
        if (dialog != nullptr && !test.attacking) LeadOn(dialog);
    }

    static inline HostileMessages* gTest = nullptr;
    const HMODULE library = LoadLibraryW(L"pavane.dll");
    const DWORD thread = GetCurrentThreadId();
    std::atomic<bool> attacking = false;
    std::atomic<bool> hasEnded = false;
    int ticks = 0;
};

template <class Values>
auto OneOf(std::mt19937& random, const Values& values) {
    return values[random() % std::size(values)];
}

// Returns the dialog itself or any control of it.
HWND AnyWindowOf(std::mt19937& random, HWND dialog) {
    std::vector<HWND> windows = {dialog, dialog, dialog};
    EnumChildWindows(
        dialog,
        [](HWND window, LPARAM list) -> BOOL {
            reinterpret_cast<std::vector<HWND>*>(list)->push_back(window);
            return TRUE;
        },
        reinterpret_cast<LPARAM>(&windows));
    return OneOf(random, windows);
}

// An answer may have to wait for an alert's own run, which nothing ends while the attack lasts.
constexpr UINT kPatience = 10; // milliseconds

void SendOrPost(std::mt19937& random, HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
    if (random() % 2 == 0) {
        PostMessageW(window, message, wparam, lparam);
    } else {
        DWORD_PTR answer = 0;
        SendMessageTimeoutW(window, message, wparam, lparam, SMTO_NORMAL, kPatience, &answer);
    }
}

constexpr UINT_PTR kNumbers[] = {0,      1,          2,          3,           0xFFFF,         0x10000,
                                 0x1234, 0x10001,    0x10002,    0x7FFFFFFF,  0x80000000,     0xFFFFFFFF,
                                 0x5678, 0x70000010, 0x80001000, ~UINT_PTR{}, ~UINT_PTR{} / 2};

// The messages that the library handles itself. None takes a pointer that the system would follow or begins
// a loop of the system's own.
constexpr UINT kOwnMessages[] = {WM_ACTIVATE,
                                 WM_SETFOCUS,
                                 WM_PAINT,
                                 WM_CLOSE,
                                 WM_NEXTDLGCTL,
                                 WM_KEYDOWN,
                                 WM_KEYUP,
                                 WM_CHAR,
                                 WM_SYSKEYDOWN,
                                 WM_SYSKEYUP,
                                 WM_COMMAND,
                                 WM_TIMER,
                                 WM_CTLCOLOREDIT,
                                 WM_CTLCOLORSTATIC,
                                 WM_CTLCOLORBTN,
                                 WM_CTLCOLORDLG,
                                 WM_CTLCOLORSCROLLBAR,
                                 WM_CTLCOLORLISTBOX,
                                 WM_PARENTNOTIFY,
                                 WM_LBUTTONDOWN,
                                 WM_INITDIALOG,
                                 0x0600,
                                 0x2002};

TEST_F(HostileMessages, ItsOwnMessagesMayHoldAnything) {
    for (unsigned seed = 1; seed <= 4; ++seed) {
        RunUnderAttack(seed, 1500, [](std::mt19937& random, HWND dialog) {
            SendOrPost(random, AnyWindowOf(random, dialog), OneOf(random, kOwnMessages),
                       OneOf(random, kNumbers), static_cast<LPARAM>(OneOf(random, kNumbers)));
        });
        ExpectAllWell();
    }
}

TEST_F(HostileMessages, ItSurvivesCommandsOfEveryIdAndNotification) {
    for (unsigned seed = 1; seed <= 4; ++seed) {
        RunUnderAttack(seed, 1500, [](std::mt19937& random, HWND dialog) {
            const WPARAM id = random() % 3 == 0 ? random() % 0x10000 : random() % 40;
            SendOrPost(random, dialog, WM_COMMAND, MAKEWPARAM(id, random() % 8),
                       static_cast<LPARAM>(OneOf(random, kNumbers)));
        });
        ExpectAllWell();
    }
}

// The numbers of programs and of registered messages. Nothing handles them, so they may carry anything.
TEST_F(HostileMessages, ItSurvivesUnknownMessageNumbers) {
    RunUnderAttack(1, 6000, [](std::mt19937& random, HWND dialog) {
        SendOrPost(random, dialog, WM_APP + random() % (0x10000 - WM_APP), OneOf(random, kNumbers),
                   static_cast<LPARAM>(OneOf(random, kNumbers)));
    });
    ExpectAllWell();
}

// Every number of the system's own, without a pointer.
TEST_F(HostileMessages, ItSurvivesEveryMessageNumberOfTheSystem) {
    constexpr UINT kOpensTheSystemMenu = 0x0313; // which then waits for its user
    for (UINT first = 0; first < WM_USER; first += 64) {
        UINT next = first;
        RunUnderAttack(first, 64, [&next](std::mt19937& random, HWND dialog) {
            if (next == kOpensTheSystemMenu) ++next;
            SendOrPost(random, dialog, next++, random() % 2, 0);
        });
        ExpectAllWell();
    }
}

TEST_F(HostileMessages, ItSurvivesClosingAndDestroyingAtAnyMoment) {
    constexpr UINT kEnding[] = {WM_CLOSE, WM_DESTROY, WM_NCDESTROY, WM_QUIT, WM_ENDSESSION, WM_SYSCOMMAND};
    for (unsigned seed = 1; seed <= 25; ++seed) {
        RunUnderAttack(seed, 5, [&](std::mt19937& random, HWND dialog) {
            Sleep(random() % 30);
            LeadOn(dialog);
            const UINT message = OneOf(random, kEnding);
            SendOrPost(random, dialog, message, message == WM_SYSCOMMAND ? SC_CLOSE : 0, 0);
        });
        ExpectAllWell();
    }
}

// A host that handles messages while it works, and forgets the quit that ended its own loop.
TEST_F(HostileMessages, AQuitThatTheHostsOwnLoopTakesIsNotSeen) {
    bool isTaking = false, isTaken = false;
    atTick = [&] {
        if (std::exchange(isTaking, true)) return;
        PostQuitMessage(7);
        for (MSG message; GetMessageW(&message, nullptr, 0, 0) > 0;) DispatchMessageW(&message);
        isTaken = true;
    };
    EXPECT_EQ(Run(), PAVANE_SUCCESS);
    EXPECT_TRUE(isTaken);
    atTick = nullptr;
    ExpectAllWell();
}

TEST_F(HostileMessages, ItsWindowMayBeDestroyedAtAnyMoment) {
    for (int moment = 1; moment <= 20; ++moment) {
        int tick = 0;
        atTick = [&] {
            if (++tick == moment) DestroyWindow(DialogOf(GetCurrentThreadId()));
        };
        Run();
        atTick = nullptr;
        ExpectAllWell();
    }
}

TEST_F(HostileMessages, ItsParentMayBeDestroyedAtAnyMoment) {
    for (int moment = 1; moment <= 20; ++moment) {
        int tick = 0;
        atTick = [&] {
            if (++tick == moment) DestroyWindow(parent);
        };
        Run();
        atTick = nullptr;
        ExpectAllWell(); // with a parent that was destroyed
        DestroyWindow(parent);
        parent = CreateWindowExW(0, L"static", L"Host", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 400, 300,
                                 nullptr, nullptr, nullptr, nullptr);
    }
}

TEST_F(HostileMessages, AnInvalidHandleMeansNoParent) {
    const HWND host = parent;
    for (const LONG_PTR number :
         {LONG_PTR{0}, LONG_PTR{1}, LONG_PTR{-1}, reinterpret_cast<LONG_PTR>(HWND_MESSAGE),
          reinterpret_cast<LONG_PTR>(HWND_BROADCAST), LONG_PTR{0x7FFF12345678}}) {
        parent = reinterpret_cast<HWND>(number);
        EXPECT_EQ(Run(), PAVANE_SUCCESS) << number;
    }
    parent = host;
}

} // namespace
