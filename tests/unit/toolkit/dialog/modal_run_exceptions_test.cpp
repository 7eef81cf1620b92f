// Exceptions of the host during a modal run, out of its callback and out of its own windows.
#include "toolkit/dialog/modal_run.h"

#include "toolkit/kept_exception.h"
#include "unit/toolkit/dialog/modal_run_fixture.h"

#include <optional>
#include <stdexcept>

namespace brixen::zeve {
namespace {

using headless::CallsOf;
using headless::ScriptMessage;
using headless::State;

// --- Exceptions of the host's own windows ---

class HostWindowThatThrows : public ModalRunTest {
protected:
    HostWindowThatThrows() {
        State().answer = [this](const headless::Message& message) -> std::optional<std::intptr_t> {
            if (message.window != parent) return std::nullopt;
            if (message.number == throwsAt && message.wparam == throwsAtWparam)
                throw std::range_error("host");
            if (message.number == kUser + 1) throw 42;
            return 0;
        };
    }

    NativeWindow parent = PlainWindow();
    std::uint32_t throwsAt = kUser;
    std::uintptr_t throwsAtWparam = 0;
};

TEST_F(HostWindowThatThrows, EndsTheRunWithItsParentEnabled) {
    for (const std::uint32_t message : {kUser, kUser + 1}) {
        DialogOwner dialog = MadeDialog(host, kTwoButtons, parent);
        platform::Post(parent, message, 0, 0);
        State().script.push_back([] { ADD_FAILURE() << "the loop went on"; });
        EXPECT_THROW((void)ZeveRunModal(dialog.get()), std::runtime_error);
        EXPECT_TRUE(platform::IsEnabled(parent));
        EXPECT_FALSE(IsModalRunUnderWay());
        State().script.clear();
        Press(dialog.get(), 1);
        EXPECT_TRUE(ZeveRunModal(dialog.get())) << "the next run";
    }
}

TEST_F(HostWindowThatThrows, WhileItIsDisabledIsEnabledAgain) {
    for (const std::uintptr_t isActivated : {0u, 1u}) {
        throwsAt = kMessageActivate;
        throwsAtWparam = isActivated;
        DialogOwner dialog = MadeDialog(host, kTwoButtons, parent);
        State().script.clear();
        Press(dialog.get(), 1);
        EXPECT_THROW((void)ZeveRunModal(dialog.get()), std::range_error);
        EXPECT_TRUE(platform::IsEnabled(parent));
        EXPECT_FALSE(IsModalRunUnderWay());
    }
}

TEST_F(HostWindowThatThrows, UnderAnAlertEndsBothRuns) {
    DialogOwner dialog = MadeDialog(host, kTwoButtons, parent);
    LetAlertsRunOver(dialog.get());
    ScriptMessage(ZeveTopWindow(dialog.get()), kUser);
    State().script.push_back([this] { platform::Send(parent, kUser, 0, 0); });
    State().script.push_back([] { ADD_FAILURE() << "a loop went on"; });
    EXPECT_THROW((void)ZeveRunModal(dialog.get()), std::range_error);
    EXPECT_TRUE(alertAnswers.empty());
    EXPECT_TRUE(platform::IsEnabled(parent));
}

// --- Exceptions ---

TEST_F(ModalRunTest, AnExceptionOfTheHostLeavesTheRunWithTheParentEnabled) {
    const NativeWindow parent = PlainWindow();
    DialogOwner dialog = MadeDialog(host, kTwoButtons, parent);
    host.answer = [](std::int32_t what, EventRecord& record) -> std::uint64_t {
        if (what == kWhatMessage && record.Read(kKeyEventRecord) == kUser)
            throw std::out_of_range("in a message");
        return 0;
    };
    ScriptMessage(ZeveTopWindow(dialog.get()), kUser);
    State().script.push_back([] { ADD_FAILURE() << "the loop went on"; });
    EXPECT_THROW((void)ZeveRunModal(dialog.get()), std::out_of_range);
    EXPECT_TRUE(platform::IsEnabled(parent));
    EXPECT_FALSE(IsModalRunUnderWay());
    EXPECT_FALSE(State().quit.has_value());
}

TEST_F(ModalRunTest, AnOperationThatSwallowsExceptionsLeavesAnEarlierOneToTheRun) {
    DialogOwner dialog = MadeDialog(host);
    const NativeWindow window = ZeveTopWindow(dialog.get());
    host.answer = [&](std::int32_t what, EventRecord& record) -> std::uint64_t {
        if (what != kWhatMessage) return 0;
        if (record.Read(kKeyEventRecord) == kMessageTimer) throw std::out_of_range("in a message");
        if (record.Read(kKeyEventRecord) == kUser) {
            platform::Send(window, kMessageTimer, 0, 0);
            ZeveHide(dialog.get(), 1);
        }
        return 0;
    };
    ScriptMessage(window, kUser);
    EXPECT_THROW((void)ZeveRunModal(dialog.get()), std::out_of_range);
}

TEST_F(ModalRunTest, AnExceptionLeavesPostedMessagesInTheQueue) {
    DialogOwner dialog = MadeDialog(host);
    host.answer = [&](std::int32_t what, EventRecord& record) -> std::uint64_t {
        if (what != kWhatMessage) return 0;
        if (record.Read(kKeyEventRecord) == kUser) throw std::out_of_range("first");
        return 0;
    };
    platform::Post(ZeveTopWindow(dialog.get()), kUser, 0, 0);
    platform::Post(ZeveTopWindow(dialog.get()), kMessageTimer, 0, 0);
    EXPECT_THROW((void)ZeveRunModal(dialog.get()), std::out_of_range);
    EXPECT_TRUE(host.Messages(kMessageTimer).empty());
    EXPECT_EQ(State().posted.size(), 1u);
}

TEST_F(ModalRunTest, AnExceptionBeforeTheWindowIsShownLeavesTheRunToo) {
    const NativeWindow parent = PlainWindow();
    DialogOwner dialog = MadeDialog(host, kTwoButtons, parent);
    host.answer = [](std::int32_t, EventRecord&) -> std::uint64_t { throw std::runtime_error("early"); };
    State().calls.clear();
    EXPECT_THROW((void)ZeveRunModal(dialog.get()), std::runtime_error);
    EXPECT_TRUE(CallsOf("Enable").empty());
}

TEST_F(ModalRunTest, AnExceptionInAMessageBeforeTheWindowIsShownLeavesTheRunToo) {
    DialogOwner dialog = MadeDialog(host, kTwoButtons, PlainWindow());
    host.answer = [&](std::int32_t what, EventRecord&) -> std::uint64_t {
        if (what == kWhatMessage) throw std::runtime_error("early");
        platform::Send(ZeveTopWindow(dialog.get()), kUser, 0, 0);
        return 0;
    };
    State().calls.clear();
    EXPECT_THROW((void)ZeveRunModal(dialog.get()), std::runtime_error);
    EXPECT_TRUE(CallsOf("Enable").empty());
    EXPECT_FALSE(State().quit.has_value());
}

TEST_F(ModalRunTest, AnExceptionOfTheParentsHostLeavesTheRunBeforeItsLoop) {
    DialogOwner dialog = MadeDialog(host);
    const NativeWindow parent = ZeveTopWindow(dialog.get());
    host.answer = [](std::int32_t, EventRecord& record) -> std::uint64_t {
        if (record.Read(kKeyEventRecord) == kMessageActivate) throw std::runtime_error("parent");
        return 1;
    };
    State().calls.clear();
    EXPECT_THROW(RunAlert(parent), std::runtime_error);
    EXPECT_TRUE(CallsOf("HandleNextMessage").empty());
    EXPECT_TRUE(platform::IsEnabled(parent));
    EXPECT_FALSE(State().quit.has_value());
    EXPECT_FALSE(IsExceptionKept());
}

TEST_F(ModalRunTest, AnExceptionThatIsNotDerivedFromTheStandardBaseReturnsFalse) {
    DialogOwner dialog = MadeDialog(host);
    host.answer = [](std::int32_t what, EventRecord&) -> std::uint64_t {
        if (what == kWhatMessage) throw 42;
        return 0;
    };
    ScriptMessage(ZeveTopWindow(dialog.get()), kUser);
    EXPECT_FALSE(ZeveRunModal(dialog.get()));
    EXPECT_FALSE(IsExceptionKept());
}

TEST_F(ModalRunTest, AnEarlierExceptionDoesNotAffectTheNextRun) {
    DialogOwner dialog = MadeDialog(host);
    host.answer = [](std::int32_t what, EventRecord& record) -> std::uint64_t {
        if (what == kWhatMessage && record.Read(kKeyEventRecord) == kUser) throw std::runtime_error("once");
        return what == kWhatMessage && record.Read(kKeyEventRecord) == kMessageCommand ? 2u : 1u;
    };
    ScriptMessage(ZeveTopWindow(dialog.get()), kUser);
    EXPECT_THROW((void)ZeveRunModal(dialog.get()), std::runtime_error);
    Press(dialog.get(), 1);
    EXPECT_TRUE(ZeveRunModal(dialog.get()));
}

TEST_F(ModalRunTest, AnExceptionOfTheDialogBelowAnAlertLeavesBothRuns) {
    DialogOwner dialog = MadeDialog(host);
    host.answer = [&](std::int32_t what, EventRecord& record) -> std::uint64_t {
        if (what != kWhatMessage) return 0;
        if (record.Read(kKeyEventRecord) == kUser)
            alertAnswers.push_back(RunAlert(ZeveTopWindow(dialog.get())));
        if (record.Read(kKeyEventRecord) == kMessageTimer) throw std::out_of_range("in the dialog below");
        return kAnswerDefault;
    };
    ScriptMessage(ZeveTopWindow(dialog.get()), kUser);
    ScriptMessage(ZeveTopWindow(dialog.get()), kMessageTimer);
    State().script.push_back([] { ADD_FAILURE() << "a loop went on"; });
    EXPECT_THROW((void)ZeveRunModal(dialog.get()), std::out_of_range);
    EXPECT_TRUE(alertAnswers.empty());
}

} // namespace
} // namespace brixen::zeve
