#include "toolkit/dialog/abandon_dialogs.h"

#include "toolkit/dialog/dpi_unaware_scope.h"
#include "toolkit/dialog/modal_run.h"
#include "toolkit/kept_exception.h"
#include "toolkit/message_numbers.h"
#include "unit/toolkit/dialog/dialog_fixture.h"
#include "view/reader/reader_state.h"

#include <stdexcept>

namespace brixen::zeve {
namespace {

using headless::CallsOf;
using headless::ScriptMessage;
using headless::State;

class AbandonedDialogs : public DialogTest {
protected:
    TestHost host, alertHost;
    const NativeWindow parent = PlainWindow();
};

TEST_F(AbandonedDialogs, AreGoneWithTheirRunsAndTheirOwnersAreEnabled) {
    const DpiUnawareScope scope;
    DialogOwner dialog = MadeDialog(host, kTwoButtons, parent), alert;
    const NativeWindow window = ZeveTopWindow(dialog.get());
    host.answer = [&](std::int32_t what, EventRecord& record) -> std::uint64_t {
        if (what != kWhatMessage || record.Read(kKeyEventRecord) != kUser) return kAnswerDefault;
        alert = MadeDialog(alertHost, kTwoButtons, window);
        return ZeveRunModal(alert.get()) ? 0u : 1u;
    };
    ScriptMessage(window, kUser);
    State().script.push_back([&] {
        platform::LockUpdates(window);
        host.events.clear();
        alertHost.events.clear();
        AbandonDialogs();
        EXPECT_FALSE(IsModalRunUnderWay());
        EXPECT_TRUE(platform::IsEnabled(parent));
        EXPECT_FALSE(platform::IsWindowAlive(window));
        EXPECT_FALSE(platform::IsWindowAlive(ZeveTopWindow(alert.get())));
        EXPECT_EQ(State().locked, nullptr);
        EXPECT_EQ(State().dpiContext, headless::kDpiAware);
        EXPECT_TRUE(host.events.empty()) << "no host is called";
        EXPECT_TRUE(alertHost.events.empty());
    });
    EXPECT_FALSE(ZeveRunModal(dialog.get()));
}

TEST_F(AbandonedDialogs, LeaveNoExceptionToALaterOperation) {
    DialogOwner dialog = MadeDialog(host);
    host.answer = [](std::int32_t, EventRecord&) -> std::uint64_t { throw std::runtime_error("kept"); };
    platform::Send(ZeveTopWindow(dialog.get()), kUser, 0, 0);
    ASSERT_TRUE(IsExceptionKept());
    AbandonDialogs();
    EXPECT_FALSE(IsExceptionKept());
}

TEST_F(AbandonedDialogs, PostAQuitOfTheHostAgain) {
    DialogOwner dialog = MadeDialog(host), alert;
    host.answer = [&](std::int32_t what, EventRecord& record) -> std::uint64_t {
        if (what != kWhatMessage || record.Read(kKeyEventRecord) != kUser) return kAnswerDefault;
        alert = MadeDialog(alertHost);
        EXPECT_FALSE(ZeveRunModal(alert.get()));
        EXPECT_FALSE(State().quit.has_value());
        AbandonDialogs();
        EXPECT_EQ(State().quit, 9);
        return 0;
    };
    ScriptMessage(ZeveTopWindow(dialog.get()), kUser);
    State().script.push_back([] { platform::PostQuit(9); });
    EXPECT_FALSE(ZeveRunModal(dialog.get()));
}

TEST_F(AbandonedDialogs, LeaveTheReaderOfDescriptionsAsIfItsRunsHadReturned) {
    char place = 0;
    gReaderState.limits.views = 7;
    gReaderState.runs = 2;
    gReaderState.currentScope = reinterpret_cast<CExpressionScope*>(&place);
    gReaderState.marks.failed = &place;
    AbandonDialogs();
    EXPECT_EQ(gReaderState.runs, 0u);
    EXPECT_EQ(gReaderState.currentScope, nullptr);
    EXPECT_EQ(gReaderState.marks.failed, nullptr);
    EXPECT_EQ(gReaderState.limits.views, 7u);
    ResetReaderState();
}

TEST_F(AbandonedDialogs, LeaveALockOfTheHostsOwn) {
    State().locked = parent;
    platform::LockUpdates(parent);
    AbandonDialogs();
    EXPECT_EQ(State().locked, parent);
}

TEST_F(AbandonedDialogs, TouchNothingWhereNoDialogLives) {
    State().calls.clear();
    AbandonDialogs();
    EXPECT_TRUE(CallsOf("CloseWindow").empty());
    EXPECT_TRUE(CallsOf("Enable").empty());
}

// --- The resolution of the thread ---

TEST(DpiUnaware, TheThreadIsUnawareWhileAScopeLives) {
    headless::Reset();
    {
        const DpiUnawareScope outer;
        EXPECT_EQ(State().dpiContext, headless::kDpiUnaware);
        {
            const DpiUnawareScope inner;
            EXPECT_EQ(State().dpiContext, headless::kDpiUnaware);
        }
        EXPECT_EQ(State().dpiContext, headless::kDpiUnaware);
    }
    EXPECT_EQ(State().dpiContext, headless::kDpiAware);
}

TEST(DpiUnaware, NothingChangesWhereTheSystemRefuses) {
    headless::Reset();
    {
        State().refuseDpiContext = 1;
        const DpiUnawareScope scope;
        EXPECT_EQ(State().dpiContext, headless::kDpiAware);
    }
    EXPECT_EQ(State().dpiContext, headless::kDpiAware);
}

} // namespace
} // namespace brixen::zeve
