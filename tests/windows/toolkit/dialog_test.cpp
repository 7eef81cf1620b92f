#include "toolkit/dialog/zeve_dialog.h"

#include "toolkit/platform/toolkit_platform.h"

#include <windows.h>

#include <algorithm>
#include <deque>
#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace brixen::zeve {
namespace {

HWND Handle(NativeWindow window) { return reinterpret_cast<HWND>(window); }

// The user's actions while a modal run waits: one step for each tick of a timer. A run that continues after
// the last step is ended, and the test fails.
class User {
public:
    User() { gUser = this; }
    ~User() {
        if (timer != 0) KillTimer(nullptr, timer);
        gUser = nullptr;
    }
    void Does(std::function<void()> step) {
        steps.push_back(std::move(step));
        if (timer == 0) timer = SetTimer(nullptr, 0, 20, Tick);
    }

private:
    static void CALLBACK Tick(HWND, UINT, UINT_PTR, DWORD) {
        if (gUser == nullptr) return;
        if (!gUser->steps.empty()) {
            const auto step = std::move(gUser->steps.front());
            gUser->steps.pop_front();
            step();
        } else if (++gUser->idleTicks == 250) {
            ADD_FAILURE() << "the run did not end";
            PostQuitMessage(0);
        }
    }

    static inline User* gUser = nullptr;
    std::deque<std::function<void()>> steps;
    UINT_PTR timer = 0;
    int idleTicks = 0;
};

constexpr char kView[] = "dialog(name: 'Real window', width: 300) {"
                         "  edit_text(name: '', view_id: 10, width: 100);"
                         "  button(name: 'First', view_id: 1, default: true);"
                         "  button(name: 'Second', view_id: 2);"
                         "  check_box(name: 'Check', view_id: 11, width: 100);"
                         "}";

class Dialog : public ::testing::Test {
protected:
    Dialog() { ZeveInitialize(); }
    ~Dialog() override {
        ZeveDelete(dialog);
        for (HWND window : {owner, other}) // null if the test destroyed it
            if (window != nullptr) DestroyWindow(window);
    }

    void Make(const char* view = kView) {
        ZeveInitRecord record;
        record.callback = &Dialog::Hear;
        record.instance = platform::LibraryModule();
        record.parentWindow = reinterpret_cast<NativeWindow>(owner);
        dialog = ZeveNew(&record);
        ZeveAddViewText(dialog, view);
        window = Handle(ZeveMakeDialog(dialog, this));
        ASSERT_NE(window, nullptr);
    }
    static HWND PlainWindow() {
        return CreateWindowExW(0, L"static", L"Owner", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 400, 300,
                               nullptr, nullptr, nullptr, nullptr);
    }
    HWND Control(int id) const { return GetDlgItem(window, id); }
    void Key(WPARAM key) {
        user.Does([key] { PostMessageW(GetFocus(), WM_KEYDOWN, key, 0); });
    }
    void Press(int id) {
        user.Does([this, id] { PostMessageW(Control(id), BM_CLICK, 0, 0); });
    }
    int CountOf(UINT message) const {
        return static_cast<int>(std::count(messages.begin(), messages.end(), message));
    }

    static std::uint64_t Hear(std::int32_t what, EventRecord& record, void* params) {
        auto& test = *static_cast<Dialog*>(params);
        if (what != kWhatMessage) return 0;
        const auto message = static_cast<UINT>(record.Read(kKeyEventRecord));
        test.messages.push_back(message);
        if (message == test.throwsAt) {
            test.throwsAt = 0;
            throw std::out_of_range("in the host");
        }
        if (message != WM_COMMAND) return kAnswerDefault;
        const auto id = static_cast<int>(LOWORD(record.Read(kKeyWparam)));
        if (HIWORD(record.Read(kKeyWparam)) > 1 || id > 2) return kAnswerDefault;
        return id == 1 ? kAnswerEndPositive : kAnswerEndNegative;
    }

    User user;
    HWND owner = nullptr, other = nullptr, window = nullptr;
    ZeveDialog* dialog = nullptr;
    std::vector<UINT> messages;
    UINT throwsAt = 0;
};

TEST_F(Dialog, EndsWithTheAnswerOfTheButton) {
    Make();
    Press(1);
    EXPECT_TRUE(ZeveRunModal(dialog));
    EXPECT_TRUE(IsWindowVisible(window));
    Press(2);
    EXPECT_FALSE(ZeveRunModal(dialog));
}

TEST_F(Dialog, HasTheClientAreaOfItsView) {
    Make("dialog(name: 'Size', width: 321, height: 123);");
    RECT client = {};
    GetClientRect(window, &client);
    EXPECT_EQ(client.right, 321);
    EXPECT_EQ(client.bottom, 123);
}

TEST_F(Dialog, IsInTheMiddleOfTheScreen) {
    Make("dialog(name: 'Place', width: 321, height: 123);");
    RECT frame = {};
    GetWindowRect(window, &frame);
    EXPECT_EQ(frame.left, (GetSystemMetrics(SM_CXFULLSCREEN) - 321) / 2);
    EXPECT_EQ(frame.top, (GetSystemMetrics(SM_CYFULLSCREEN) - 123) / 2);
}

TEST_F(Dialog, ItsSystemMenuHoldsOnlyMoveAndClose) {
    Make("dialog(name: 'Menu', close_box: true, width: 200, height: 50);");
    const HMENU menu = GetSystemMenu(window, FALSE);
    ASSERT_EQ(GetMenuItemCount(menu), 2);
    EXPECT_EQ(GetMenuItemID(menu, 0), UINT(SC_MOVE));
    EXPECT_EQ(GetMenuItemID(menu, 1), UINT(SC_CLOSE));
    platform::GrayCloseItem(ZeveTopWindow(dialog));
    EXPECT_NE(GetMenuState(menu, SC_CLOSE, MF_BYCOMMAND) & MF_GRAYED, 0u);
}

TEST_F(Dialog, ItsControlsAreThoseOfTheManifest) {
    Make();
    // The procedure of the class, which the toolkit's own replaced.
    const auto procedure = GetClassLongPtrW(Control(1), GCLP_WNDPROC);
    HMODULE module = nullptr;
    GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                       reinterpret_cast<const wchar_t*>(procedure), &module);
    wchar_t path[MAX_PATH] = {};
    GetModuleFileNameW(module, path, MAX_PATH);
    EXPECT_NE(std::wstring(path).find(L"winsxs"), std::wstring::npos);
}

TEST_F(Dialog, TabMovesThroughTheControlsInTheOrderOfTheView) {
    Make();
    std::vector<int> visited;
    const auto note = [&] { visited.push_back(GetDlgCtrlID(GetFocus())); };
    user.Does([this] { SetFocus(Control(10)); });
    for (int i = 0; i < 4; ++i) {
        Key(VK_TAB);
        user.Does(note);
    }
    Press(1);
    EXPECT_TRUE(ZeveRunModal(dialog));
    EXPECT_EQ(visited, (std::vector<int>{1, 2, 11, 10}));
}

TEST_F(Dialog, HasTheFocusWhereTheUserLeftItForAnotherWindow) {
    other = PlainWindow();
    Make();
    int found = 0;
    user.Does([this] { SetFocus(Control(10)); });
    user.Does([this] { SetForegroundWindow(other); });
    user.Does([this] {
        EXPECT_EQ(GetActiveWindow(), other);
        SetForegroundWindow(window);
    });
    user.Does([&] { found = GetDlgCtrlID(GetFocus()); });
    Press(1);
    EXPECT_TRUE(ZeveRunModal(dialog));
    EXPECT_EQ(found, 10);
}

void HoldShift(bool down) {
    BYTE keys[256] = {};
    keys[VK_SHIFT] = down ? 0x80 : 0;
    SetKeyboardState(keys);
}

TEST_F(Dialog, ShiftTabMovesBackward) {
    Make();
    int reached = 0;
    user.Does([this] { SetFocus(Control(2)); });
    user.Does([] { HoldShift(true); });
    Key(VK_TAB);
    user.Does([&] {
        reached = GetDlgCtrlID(GetFocus());
        HoldShift(false);
    });
    Press(1);
    EXPECT_TRUE(ZeveRunModal(dialog));
    EXPECT_EQ(reached, 1);
}

TEST_F(Dialog, EscapeIsCommandTwoAndEnterCommandOne) {
    Make();
    user.Does([this] { SetFocus(Control(10)); });
    Key(VK_ESCAPE);
    EXPECT_FALSE(ZeveRunModal(dialog));
    user.Does([this] { SetFocus(Control(10)); });
    Key(VK_RETURN);
    EXPECT_TRUE(ZeveRunModal(dialog));
}

TEST_F(Dialog, AltInAControlReachesItTwice) {
    Make();
    SendMessageW(Control(1), WM_SYSKEYDOWN, VK_MENU, 0);
    EXPECT_EQ(CountOf(WM_SYSKEYDOWN), 2);
    SendMessageW(Control(1), WM_SYSKEYUP, VK_MENU, 0);
    EXPECT_EQ(CountOf(WM_SYSKEYUP), 1);
}

TEST_F(Dialog, ReceivesWhetherAnEditFieldIsEmpty) {
    Make();
    SetWindowTextW(Control(10), L"x");
    SendMessageW(Control(10), WM_KEYUP, 'X', 0);
    EXPECT_EQ(CountOf(0x2002), 1);
}

TEST_F(Dialog, DisablesItsParentMeanwhile) {
    owner = PlainWindow();
    Make();
    bool wasEnabled = true;
    user.Does([&] { wasEnabled = IsWindowEnabled(owner); });
    Press(1);
    EXPECT_TRUE(ZeveRunModal(dialog));
    EXPECT_FALSE(wasEnabled);
    EXPECT_TRUE(IsWindowEnabled(owner));
}

TEST_F(Dialog, RunsWithADestroyedParent) {
    owner = PlainWindow();
    DestroyWindow(owner);
    Make();
    Press(1);
    EXPECT_TRUE(ZeveRunModal(dialog));
    owner = nullptr;
}

TEST_F(Dialog, DestroyingItsOwnerEndsItsRun) {
    owner = PlainWindow();
    Make();
    user.Does([this] { DestroyWindow(owner); });
    EXPECT_FALSE(ZeveRunModal(dialog));
    EXPECT_FALSE(IsWindow(window));
    EXPECT_FALSE(ZeveRunModal(dialog));
    owner = nullptr;
}

TEST_F(Dialog, SeveralLiveAtOnce) {
    Make();
    ZeveDialog* const first = dialog;
    const HWND firstWindow = window;
    Make();
    messages.clear();
    SendMessageW(firstWindow, WM_USER, 0, 0);
    SendMessageW(window, WM_USER, 0, 0);
    EXPECT_EQ(CountOf(WM_USER), 2);
    ZeveDelete(first);
    EXPECT_FALSE(IsWindow(firstWindow));
    Press(1);
    EXPECT_TRUE(ZeveRunModal(dialog));
}

TEST_F(Dialog, AClassOfItsOwnIsUnregisteredWithIt) {
    Make("dialog(name: 'Own class', create_system_dialog: false, width: 200, height: 60) {"
         " button(name: 'OK', view_id: 1); button(name: 'No', view_id: 2); }");
    wchar_t name[100] = {};
    GetClassNameW(window, name, 100);
    EXPECT_EQ(std::wstring(name).size(), 36u);
    WNDCLASSW description = {};
    const auto instance = reinterpret_cast<HINSTANCE>(platform::LibraryModule());
    ASSERT_TRUE(GetClassInfoW(instance, name, &description));
    EXPECT_EQ(description.style, 3u);
    EXPECT_EQ(reinterpret_cast<UINT_PTR>(description.hbrBackground), 16u);
    Press(2);
    EXPECT_FALSE(ZeveRunModal(dialog));
    SendMessageW(window, WM_NEXTDLGCTL, 0, 0);
    ZeveDelete(dialog);
    dialog = nullptr;
    EXPECT_FALSE(GetClassInfoW(instance, name, &description));
}

TEST_F(Dialog, AnExceptionInAMessageOfAnOperationLeavesTheOperation) {
    Make();
    throwsAt = WM_COMMAND; // which the edit field sends when its text changes
    EventRecord record;
    record.StorePointer(kKeySetValue, "new");
    EXPECT_THROW(ZeveSetValue(dialog, 10, record), std::out_of_range);
    EXPECT_TRUE(ZeveSetValue(dialog, 10, record));
}

// Its parameter is a message that the window manager sends from inside its own calls, or one that is
// dispatched.
class DialogWhoseHostThrows : public Dialog, public ::testing::WithParamInterface<UINT> {};

TEST_P(DialogWhoseHostThrows, ThrowsWithItsParentEnabledAndRunsAgain) {
    owner = PlainWindow();
    Make();
    throwsAt = GetParam();
    user.Does([this] {
        InvalidateRect(window, nullptr, TRUE);
        PostMessageW(window, GetParam(), 0, 0);
    });
    EXPECT_THROW((void)ZeveRunModal(dialog), std::out_of_range);
    EXPECT_TRUE(IsWindowEnabled(owner));
    Press(1);
    EXPECT_TRUE(ZeveRunModal(dialog));
}

INSTANTIATE_TEST_SUITE_P(Messages, DialogWhoseHostThrows,
                         ::testing::Values(UINT(WM_PAINT), UINT(WM_ERASEBKGND), UINT(WM_SHOWWINDOW),
                                           UINT(WM_WINDOWPOSCHANGING), UINT(WM_COMMAND), UINT(WM_USER)));

} // namespace
} // namespace brixen::zeve
