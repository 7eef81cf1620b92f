// Modal runs inside modal runs: alerts above dialogs.
#include "toolkit/dialog/modal_run.h"

#include "unit/toolkit/dialog/modal_run_fixture.h"

#include <stdexcept>
#include <vector>

namespace brixen::zeve {
namespace {

using headless::CallsOf;
using headless::ScriptMessage;
using headless::State;

TEST_F(ModalRunTest, AnAlertEndsAloneAndTheDialogContinues) {
    DialogOwner dialog = MadeDialog(host);
    LetAlertsRunOver(dialog.get());
    ScriptMessage(ZeveTopWindow(dialog.get()), kUser);
    ScriptForAlert(kMessageCommand, 1);
    ScriptMessage(ZeveTopWindow(dialog.get()), kUser);
    ScriptForAlert(kMessageCommand, 2);
    Press(dialog.get(), 1);
    EXPECT_TRUE(ZeveRunModal(dialog.get()));
    EXPECT_EQ(alertAnswers, (std::vector<bool>{true, false}));
    EXPECT_TRUE(platform::IsEnabled(ZeveTopWindow(dialog.get())));
}

TEST_F(ModalRunTest, TheEndOfTheDialogBelowFirstEndsTheAlertAsByItsSecondButton) {
    for (const std::uintptr_t command : {1u, 2u}) {
        alertAnswers.clear();
        DialogOwner dialog = MadeDialog(host);
        LetAlertsRunOver(dialog.get());
        ScriptMessage(ZeveTopWindow(dialog.get()), kUser);
        Press(dialog.get(), command);
        EXPECT_EQ(ZeveRunModal(dialog.get()), command == 1);
        EXPECT_EQ(alertAnswers, (std::vector<bool>{false}));
        EXPECT_FALSE(State().quit.has_value());
    }
}

TEST_F(ModalRunTest, TheAlertsOwnAnswerIsTooLateAfterTheEndOfTheDialogBelow) {
    DialogOwner dialog = MadeDialog(host);
    LetAlertsRunOver(dialog.get());
    ScriptMessage(ZeveTopWindow(dialog.get()), kUser);
    State().script.push_back([&] {
        platform::Send(ZeveTopWindow(dialog.get()), kMessageCommand, 1, 0);
        platform::Send(alertWindow, kMessageCommand, 1, 0);
    });
    EXPECT_TRUE(ZeveRunModal(dialog.get()));
    EXPECT_EQ(alertAnswers, (std::vector<bool>{false}));
}

TEST_F(ModalRunTest, AnAlertThatBeginsAfterTheEndOfItsDialogIsNotShown) {
    for (const std::uintptr_t command : {1u, 2u}) {
        alertAnswers.clear();
        DialogOwner dialog = MadeDialog(host);
        LetAlertsRunOver(dialog.get());
        const NativeWindow window = ZeveTopWindow(dialog.get());
        State().calls.clear();
        State().script.push_back([=] {
            platform::Send(window, kMessageCommand, command, 0);
            platform::Send(window, kUser, 0, 0);
        });
        EXPECT_EQ(ZeveRunModal(dialog.get()), command == 1);
        EXPECT_EQ(alertAnswers, (std::vector<bool>{false}));
        EXPECT_EQ(CallsOf("PaintNow").size(), 1u) << "the dialog alone is shown";
    }
}

TEST_F(ModalRunTest, TheEndOfTheLowestOfThreeEndsAllThree) {
    DialogOwner bottom = MadeDialog(host), middle;
    TestHost middleHost;
    bool middleAnswer = true;
    host.answer = [&](std::int32_t what, EventRecord& record) -> std::uint64_t {
        if (what != kWhatMessage) return 0;
        if (record.Read(kKeyEventRecord) == kMessageCommand) return 2;
        if (record.Read(kKeyEventRecord) == kUser) {
            middle = MadeDialog(middleHost);
            middleAnswer = ZeveRunModal(middle.get());
        }
        return 1;
    };
    middleHost.answer = [&](std::int32_t what, EventRecord& record) -> std::uint64_t {
        if (what == kWhatMessage && record.Read(kKeyEventRecord) == kUser)
            alertAnswers.push_back(RunAlert(ZeveTopWindow(middle.get())));
        return 1;
    };
    ScriptMessage(ZeveTopWindow(bottom.get()), kUser);
    State().script.push_back([&] { platform::Send(ZeveTopWindow(middle.get()), kUser, 0, 0); });
    ScriptMessage(ZeveTopWindow(bottom.get()), kMessageCommand, 1);
    EXPECT_TRUE(ZeveRunModal(bottom.get()));
    EXPECT_EQ(alertAnswers, (std::vector<bool>{false}));
    EXPECT_FALSE(middleAnswer);
}

TEST_F(ModalRunTest, DestroyingTheDialogBelowEndsTheAlertToo) {
    DialogOwner dialog = MadeDialog(host);
    LetAlertsRunOver(dialog.get());
    const NativeWindow window = ZeveTopWindow(dialog.get());
    ScriptMessage(window, kUser);
    State().script.push_back([&] { platform::CloseWindow(window); });
    EXPECT_FALSE(ZeveRunModal(dialog.get()));
    EXPECT_EQ(alertAnswers, (std::vector<bool>{false}));
}

TEST_F(ModalRunTest, AnExceptionInAnAlertEndsBothRunsAndLeavesTheLower) {
    DialogOwner dialog = MadeDialog(host);
    LetAlertsRunOver(dialog.get());
    alertHost.answer = [](std::int32_t what, EventRecord& record) -> std::uint64_t {
        if (what == kWhatMessage && record.Read(kKeyEventRecord) == kMessageTimer)
            throw std::runtime_error("alert");
        return 1;
    };
    ScriptMessage(ZeveTopWindow(dialog.get()), kUser);
    ScriptForAlert(kMessageTimer, 0);
    EXPECT_THROW((void)ZeveRunModal(dialog.get()), std::runtime_error);
    EXPECT_TRUE(alertAnswers.empty());
    EXPECT_FALSE(IsModalRunUnderWay());
    EXPECT_FALSE(State().quit.has_value());
}

} // namespace
} // namespace brixen::zeve
