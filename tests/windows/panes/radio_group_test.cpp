// Radio buttons in a real window: the arrow keys, Tab and clicks, with the system's own keyboard rules.
#include "workflow/panes/radio_group.h"

#include "toolkit/dialog/zeve_dialog.h"
#include "toolkit/message_numbers.h"
#include "workflow/panes/dialog_rules.h"
#include "workflow/panes/window_message.h"
#include "workflow/platform/message_numbers.h"

#include <gtest/gtest.h>

#include <windows.h>

#include <deque>
#include <functional>

namespace brixen::pvn::pvn_workflow {
namespace {

constexpr std::uint16_t kIds[] = {41, 42, 43};
constexpr char kView[] = "dialog(name: 'Radio buttons') {"
                         " edit_text(view_id: 40, width: 80);"
                         " radio(view_id: 41, name: '&One'); radio(view_id: 42, name: 'T&wo');"
                         " radio(view_id: 43, name: 'T&hree');"
                         " button(view_id: 44, name: 'OK'); }";
constexpr UINT kTick = 30; // milliseconds from one step to the next

// A dialog whose host moves the mark. The user's actions are steps, one for each tick.
class RadioButtons : public testing::Test {
protected:
    RadioButtons() {
        gTest = this;
        zeve::ZeveInitialize();
        zeve::ZeveInitRecord record;
        record.callback = &Callback;
        record.instance = reinterpret_cast<zeve::NativeModule>(GetModuleHandleW(nullptr));
        dialog.reset(zeve::ZeveNew(&record));
        zeve::ZeveAddViewText(dialog.get(), kView);
        window = reinterpret_cast<HWND>(zeve::ZeveMakeDialog(dialog.get(), nullptr));
        JoinRadioButtons(dialog.get(), kIds);
        MarkRadioButton(dialog.get(), kIds, 41);
    }
    ~RadioButtons() override { gTest = nullptr; }

    void Then(std::function<void()> step) { steps.push_back(std::move(step)); }
    void ThenKey(WPARAM key) {
        Then([key] {
            PostMessageW(GetFocus(), WM_KEYDOWN, key, 1);
            PostMessageW(GetFocus(), WM_KEYUP, key, static_cast<LPARAM>(0xC0000001));
        });
    }
    void ThenFocus(int id) {
        Then([this, id] { SetFocus(GetDlgItem(window, id)); });
    }
    void ThenExpect(int focused, int marked) {
        Then([this, focused, marked] {
            EXPECT_EQ(GetDlgCtrlID(GetFocus()), focused);
            EXPECT_EQ(MarkedRadioButton(dialog.get(), kIds), marked);
        });
    }
    void Run() {
        const UINT_PTR timer = SetTimer(nullptr, 0, kTick, Tick);
        static_cast<void>(zeve::ZeveRunModal(dialog.get()));
        KillTimer(nullptr, timer);
        MSG quit; // left for the application, whose loop this is not
        PeekMessageW(&quit, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE);
        EXPECT_TRUE(steps.empty());
    }

    HWND window = nullptr;
    OwnedDialog dialog;

private:
    static std::uint64_t Callback(std::int32_t what, zeve::EventRecord& record, void*) {
        if (what != zeve::kWhatMessage || !gTest->dialog) return zeve::kAnswerDefault;
        const WindowMessage message = MessageOf(record);
        if (message.number != zeve::kMessageCommand) return zeve::kAnswerDefault;
        const Notification notification = NotificationOf(message.wparam);
        const bool isUse =
            IsUseOfControl(notification.code) || notification.code == kNotificationButtonHasFocus;
        const bool isRadio = notification.id >= 41 && notification.id <= 43;
        if (!isUse || !isRadio) return zeve::kAnswerDefault;
        MarkRadioButton(gTest->dialog.get(), kIds, notification.id);
        return 0;
    }

    static void CALLBACK Tick(HWND, UINT, UINT_PTR, DWORD) {
        if (!IsWindowVisible(gTest->window)) return;
        if (gTest->steps.empty()) return PostQuitMessage(0);
        const auto step = std::move(gTest->steps.front());
        gTest->steps.pop_front();
        step();
    }

    static inline RadioButtons* gTest = nullptr;
    std::deque<std::function<void()>> steps;
};

TEST_F(RadioButtons, TheArrowKeysMoveTheMarkWithTheFocusAndWrap) {
    ThenFocus(41);
    ThenKey(VK_DOWN);
    ThenExpect(42, 42);
    ThenKey(VK_RIGHT);
    ThenExpect(43, 43);
    ThenKey(VK_DOWN);
    ThenExpect(41, 41);
    ThenKey(VK_UP);
    ThenExpect(43, 43);
    Run();
}

TEST_F(RadioButtons, TabReachesTheMarkedOneAndLeavesTheGroup) {
    Then([this] { MarkRadioButton(dialog.get(), kIds, 42); });
    ThenFocus(40);
    ThenKey(VK_TAB);
    ThenExpect(42, 42);
    ThenKey(VK_TAB);
    ThenExpect(44, 42);
    Run();
}

TEST_F(RadioButtons, AClickMarks) {
    Then([this] { SendMessageW(GetDlgItem(window, 43), BM_CLICK, 0, 0); });
    ThenExpect(43, 43);
    Run();
}

} // namespace
} // namespace brixen::pvn::pvn_workflow
