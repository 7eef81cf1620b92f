#include "toolkit/dialog/modal_run.h"

#include "unit/toolkit/dialog/modal_run_fixture.h"

#include <stdexcept>
#include <string>

namespace brixen::zeve {
namespace {

using headless::CallsOf;
using headless::ScriptMessage;
using headless::State;

TEST_F(ModalRunTest, EndsWithTheAnswerOfTheHost) {
    DialogOwner dialog = MadeDialog(host);
    Press(dialog.get(), 1);
    EXPECT_TRUE(ZeveRunModal(dialog.get()));
    Press(dialog.get(), 2);
    EXPECT_FALSE(ZeveRunModal(dialog.get()));
}

TEST_F(ModalRunTest, AnyOtherEndingOfTheLoopIsNegative) {
    DialogOwner dialog = MadeDialog(host);
    EXPECT_FALSE(ZeveRunModal(dialog.get())) << "the loop failed";
}

TEST_F(ModalRunTest, ANullHandleThrowsTheToolkitsError) {
    try {
        (void)ZeveRunModal(nullptr);
        FAIL() << "nothing was thrown";
    } catch (const std::logic_error& error) {
        EXPECT_STREQ(error.what(), "nil pointer");
    }
}

TEST_F(ModalRunTest, AnnouncesItselfToTheHostBeforeItShowsTheWindow) {
    DialogOwner dialog = MadeDialog(host);
    bool wasShown = true;
    host.answer = [&](std::int32_t what, EventRecord& record) {
        if (what == kWhatModalRun) {
            wasShown = platform::IsShown(ZeveTopWindow(dialog.get()));
            EXPECT_FALSE(record.Has(kKeyWindow));
        }
        return kAnswerDefault;
    };
    (void)ZeveRunModal(dialog.get());
    EXPECT_EQ(host.OfWhat(kWhatModalRun).size(), 1u);
    EXPECT_FALSE(wasShown);
    EXPECT_TRUE(platform::IsShown(ZeveTopWindow(dialog.get())))
        << "it stays on the screen until it is deleted";
}

TEST_F(ModalRunTest, OffersEachMessageToTheDialogFirst) {
    DialogOwner dialog = MadeDialog(host);
    (void)ZeveRunModal(dialog.get());
    const auto steps = CallsOf("HandleNextMessage");
    ASSERT_EQ(steps.size(), 1u);
    EXPECT_EQ(steps[0].window, ZeveTopWindow(dialog.get()));
}

TEST_F(ModalRunTest, TakesItsStepsInThisOrder) {
    const NativeWindow parent = PlainWindow();
    DialogOwner dialog = MadeDialog(host, kTwoButtons, parent);
    host.answer = [](std::int32_t what, EventRecord&) {
        if (what == kWhatModalRun) headless::Record("the host is called");
        return kAnswerDefault;
    };
    State().calls.clear();
    (void)ZeveRunModal(dialog.get());
    std::vector<std::string> steps;
    for (const headless::Call& call : State().calls)
        if (call.name != "IsWindowAlive") steps.push_back(call.name);
    EXPECT_EQ(steps,
              (std::vector<std::string>{"TakePendingQuit", "the host is called", "OwnerOfDialog",
                                        "TopLevelOf", "IsEnabled", "Enable", "Send", "ShowOrHide", "PaintNow",
                                        "HandleNextMessage", "WakeLoop", "Enable", "Send", "Activate"}));
}

TEST_F(ModalRunTest, DisablesTheParentMeanwhile) {
    const NativeWindow parent = PlainWindow();
    DialogOwner dialog = MadeDialog(host, kTwoButtons, parent);
    bool wasEnabled = true;
    State().script.push_back([&] { wasEnabled = platform::IsEnabled(parent); });
    State().calls.clear();
    (void)ZeveRunModal(dialog.get());
    EXPECT_FALSE(wasEnabled);
    EXPECT_TRUE(platform::IsEnabled(parent));
    EXPECT_EQ(State().active, parent);
    std::vector<std::vector<std::int64_t>> activations;
    for (const auto& call : CallsOf("Send"))
        if (call.window == parent) activations.push_back(call.numbers);
    EXPECT_EQ(activations,
              (std::vector<std::vector<std::int64_t>>{{kMessageActivate, 0, 0}, {kMessageActivate, 1, 0}}));
}

TEST_F(ModalRunTest, AnInvalidParentMeansNoParent) {
    const NativeWindow parent = PlainWindow();
    platform::CloseWindow(parent);
    DialogOwner dialog = MadeDialog(host, kTwoButtons, parent);
    State().calls.clear();
    Press(dialog.get(), 1);
    EXPECT_TRUE(ZeveRunModal(dialog.get()));
    EXPECT_TRUE(CallsOf("Enable").empty());
    EXPECT_TRUE(CallsOf("Activate").empty());
}

TEST_F(ModalRunTest, AParentThatIsDestroyedMeanwhileIsNotTouched) {
    const NativeWindow parent = PlainWindow();
    DialogOwner dialog = MadeDialog(host, kTwoButtons, parent);
    State().script.push_back([&] { headless::FindWindow(ZeveTopWindow(dialog.get()))->parent = nullptr; });
    State().script.push_back([&] { platform::CloseWindow(parent); });
    Press(dialog.get(), 1);
    State().calls.clear();
    EXPECT_TRUE(ZeveRunModal(dialog.get()));
    EXPECT_EQ(CallsOf("Enable").size(), 1u);
    EXPECT_TRUE(CallsOf("Activate").empty());
}

TEST_F(ModalRunTest, WithoutAWindowItReturnsFalseAndDisablesNothing) {
    const NativeWindow parent = PlainWindow();
    for (const bool isMade : {false, true}) {
        DialogOwner dialog = NewDialog(kTwoButtons, parent);
        State().refuseWindow = 1;
        if (isMade) {
            EXPECT_EQ(ZeveMakeDialog(dialog.get(), &host), nullptr);
        }
        State().refuseWindow = 0;
        State().calls.clear();
        host.events.clear();
        EXPECT_FALSE(ZeveRunModal(dialog.get()));
        EXPECT_TRUE(CallsOf("Enable").empty());
        EXPECT_TRUE(CallsOf("HandleNextMessage").empty());
        EXPECT_TRUE(host.events.empty());
    }
}

TEST_F(ModalRunTest, DestroyingTheWindowEndsItsLoop) {
    DialogOwner dialog = MadeDialog(host);
    State().script.push_back([&] { platform::CloseWindow(ZeveTopWindow(dialog.get())); });
    State().script.push_back([] { ADD_FAILURE() << "the loop went on"; });
    EXPECT_FALSE(ZeveRunModal(dialog.get()));
    EXPECT_EQ(State().script.size(), 1u);
    EXPECT_FALSE(ZeveRunModal(dialog.get())) << "a dialog whose window is gone does not run again";
    EXPECT_FALSE(State().quit.has_value());
}

TEST_F(ModalRunTest, DestroyingAWindowWithoutARunEndsNoRun) {
    DialogOwner dialog = MadeDialog(host);
    platform::CloseWindow(ZeveTopWindow(dialog.get()));
    EXPECT_FALSE(State().quit.has_value());
}

TEST_F(ModalRunTest, AWindowThatIsClosedBeforeItIsShownIsNotRun) {
    DialogOwner dialog = MadeDialog(host, kTwoButtons, PlainWindow());
    host.answer = [&](std::int32_t what, EventRecord&) {
        if (what == kWhatModalRun) platform::CloseWindow(ZeveTopWindow(dialog.get()));
        return kAnswerDefault;
    };
    State().calls.clear();
    EXPECT_FALSE(ZeveRunModal(dialog.get()));
    EXPECT_TRUE(CallsOf("HandleNextMessage").empty());
}

TEST_F(ModalRunTest, ADialogMayBeDeletedInItsOwnRun) {
    ZeveDialog* dialog = MadeDialog(host).release();
    host.answer = [dialog](std::int32_t what, EventRecord& record) {
        if (what == kWhatMessage && record.Read(kKeyEventRecord) == kUser) ZeveDelete(dialog);
        return std::uint64_t(0);
    };
    ScriptMessage(ZeveTopWindow(dialog), kUser);
    State().script.push_back([] { ADD_FAILURE() << "the loop went on"; });
    EXPECT_FALSE(ZeveRunModal(dialog));
    EXPECT_FALSE(IsModalRunUnderWay());
}

// --- The parent ---

TEST_F(ModalRunTest, AParentThatIsAControlMeansItsTopLevelWindow) {
    const NativeWindow owner = PlainWindow();
    platform::WindowRequest request;
    request.style = 0x40000000;
    request.parent = owner;
    const NativeWindow control = platform::MakeWindow(request);
    DialogOwner dialog = MadeDialog(host, kTwoButtons, control);
    bool wasOwnerEnabled = true, wasControlEnabled = false;
    State().script.push_back([&] {
        wasOwnerEnabled = platform::IsEnabled(owner);
        wasControlEnabled = platform::IsEnabled(control);
    });
    EXPECT_FALSE(ZeveRunModal(dialog.get()));
    EXPECT_FALSE(wasOwnerEnabled);
    EXPECT_TRUE(wasControlEnabled);
    EXPECT_TRUE(platform::IsEnabled(owner));
    EXPECT_EQ(State().active, owner);
}

TEST_F(ModalRunTest, AParentThatWasDisabledBeforeStaysDisabled) {
    const NativeWindow parent = PlainWindow();
    platform::Enable(parent, false);
    DialogOwner dialog = MadeDialog(host, kTwoButtons, parent);
    Press(dialog.get(), 1);
    EXPECT_TRUE(ZeveRunModal(dialog.get()));
    EXPECT_FALSE(platform::IsEnabled(parent));
}

TEST_F(ModalRunTest, TheDesktopMeansNoParent) {
    State().desktop = PlainWindow();
    DialogOwner dialog = MadeDialog(host, kTwoButtons, State().desktop);
    State().calls.clear();
    Press(dialog.get(), 1);
    EXPECT_TRUE(ZeveRunModal(dialog.get()));
    EXPECT_TRUE(CallsOf("Enable").empty());
}

// --- The end is a mark of the run ---

TEST_F(ModalRunTest, AnAnswerEndsTheRunAtOnceAndPostsNoQuit) {
    for (const std::uintptr_t command : {1u, 2u}) {
        DialogOwner dialog = MadeDialog(host);
        State().calls.clear();
        platform::Post(ZeveTopWindow(dialog.get()), kMessageCommand, command, 0);
        platform::Post(ZeveTopWindow(dialog.get()), kMessageTimer, 0, 0);
        EXPECT_EQ(ZeveRunModal(dialog.get()), command == 1);
        EXPECT_TRUE(host.Messages(kMessageTimer).empty())
            << "a message that was posted later stays in the queue";
        EXPECT_TRUE(CallsOf("PostQuit").empty());
        State().posted.clear();
    }
}

TEST_F(ModalRunTest, TheLastOfSeveralAnswersCounts) {
    DialogOwner dialog = MadeDialog(host);
    const NativeWindow window = ZeveTopWindow(dialog.get());
    for (const std::uintptr_t last : {1u, 2u}) {
        State().script.push_back([=] {
            platform::Send(window, kMessageCommand, 3 - last, 0);
            platform::Send(window, kMessageCommand, last, 0);
        });
        EXPECT_EQ(ZeveRunModal(dialog.get()), last == 1);
    }
}

TEST_F(ModalRunTest, AnAnswerBeforeTheWindowIsShownEndsTheRunWithoutShowingIt) {
    for (const std::uintptr_t command : {1u, 2u}) {
        DialogOwner dialog = MadeDialog(host, kTwoButtons, PlainWindow());
        const NativeWindow window = ZeveTopWindow(dialog.get());
        host.answer = [=](std::int32_t what, EventRecord& record) -> std::uint64_t {
            if (what == kWhatModalRun) platform::Send(window, kMessageCommand, command, 0);
            if (what != kWhatMessage || record.Read(kKeyEventRecord) != kMessageCommand)
                return kAnswerDefault;
            return command == 1 ? kAnswerEndPositive : kAnswerEndNegative;
        };
        State().calls.clear();
        EXPECT_EQ(ZeveRunModal(dialog.get()), command == 1);
        EXPECT_TRUE(CallsOf("ShowOrHide").empty());
        EXPECT_TRUE(CallsOf("Enable").empty());
    }
}

TEST_F(ModalRunTest, AnAnswerOfADialogWithoutARunEndsNothing) {
    DialogOwner dialog = MadeDialog(host), idle = MadeDialog(alertHost);
    State().script.push_back([&] { platform::Send(ZeveTopWindow(idle.get()), kMessageCommand, 1, 0); });
    bool wentOn = false;
    State().script.push_back([&] { wentOn = true; });
    EXPECT_FALSE(ZeveRunModal(dialog.get()));
    EXPECT_TRUE(wentOn);
}

TEST_F(ModalRunTest, AnAnswerInsideAMessageOfAnotherThreadWakesTheLoop) {
    for (const std::uintptr_t command : {1u, 2u}) {
        DialogOwner dialog = MadeDialog(host);
        State().sentByOthers.push_back(
            [&] { platform::Send(ZeveTopWindow(dialog.get()), kMessageCommand, command, 0); });
        State().sentByOthers.push_back([] { ADD_FAILURE() << "the loop kept waiting"; });
        EXPECT_EQ(ZeveRunModal(dialog.get()), command == 1);
        State().sentByOthers.clear();
    }
}

TEST_F(ModalRunTest, TheEndOfBothRunsWakesBothLoops) {
    DialogOwner dialog = MadeDialog(host);
    LetAlertsRunOver(dialog.get());
    const NativeWindow window = ZeveTopWindow(dialog.get());
    // The dialog's loop waits in the message that opens the alert, the alert's loop in the one that ends the
    // dialog.
    State().sentByOthers.push_back([=] { platform::Send(window, kUser, 0, 0); });
    State().sentByOthers.push_back([=] { platform::Send(window, kMessageCommand, 1, 0); });
    State().sentByOthers.push_back([] { ADD_FAILURE() << "a loop kept waiting"; });
    EXPECT_TRUE(ZeveRunModal(dialog.get()));
    EXPECT_EQ(alertAnswers, (std::vector<bool>{false}));
    EXPECT_EQ(State().sentByOthers.size(), 1u);
    State().sentByOthers.clear();
}

TEST_F(ModalRunTest, AnAlertThatEndsAloneInsideASentMessageLeavesTheDialogWaiting) {
    DialogOwner dialog = MadeDialog(host);
    LetAlertsRunOver(dialog.get());
    const NativeWindow window = ZeveTopWindow(dialog.get());
    State().sentByOthers.push_back([=] { platform::Send(window, kUser, 0, 0); });
    State().sentByOthers.push_back([this] { platform::Send(alertWindow, kMessageCommand, 1, 0); });
    State().sentByOthers.push_back([=] { platform::Send(window, kMessageCommand, 1, 0); });
    EXPECT_TRUE(ZeveRunModal(dialog.get()));
    EXPECT_EQ(alertAnswers, (std::vector<bool>{true}));
    EXPECT_EQ(CallsOf("HandleNextMessage").size(), 2u) << "one wait for each loop";
}

// --- Windows that are destroyed ---

TEST_F(ModalRunTest, ADialogThatIsDestroyedWhileItsParentIsDisabledIsNotWaitedFor) {
    for (const bool destroysParent : {false, true}) {
        const NativeWindow parent = PlainWindow();
        DialogOwner dialog = MadeDialog(host, kTwoButtons, parent);
        const NativeWindow window = ZeveTopWindow(dialog.get());
        State().answer = [=](const headless::Message& message) -> std::optional<std::intptr_t> {
            if (message.window == parent && message.number == kMessageActivate && message.wparam == 0)
                platform::CloseWindow(destroysParent ? parent : window);
            return 0;
        };
        if (destroysParent)
            headless::FindWindow(window)->parent = parent; // an owner is destroyed with its dialog
        State().calls.clear();
        EXPECT_FALSE(ZeveRunModal(dialog.get()));
        EXPECT_TRUE(CallsOf("HandleNextMessage").empty());
        EXPECT_TRUE(CallsOf("ShowOrHide").empty());
        EXPECT_EQ(platform::IsEnabled(parent), !destroysParent);
        EXPECT_FALSE(IsModalRunUnderWay());
        State().answer = nullptr;
    }
}

TEST_F(ModalRunTest, AWindowThatVanishesWithoutAMessageEndsItsLoopToo) {
    DialogOwner dialog = MadeDialog(host);
    const NativeWindow window = ZeveTopWindow(dialog.get());
    State().script.push_back(
        [=] { std::erase_if(State().windows, [=](const auto& other) { return other->handle == window; }); });
    State().script.push_back([] { ADD_FAILURE() << "the loop kept waiting"; });
    EXPECT_FALSE(ZeveRunModal(dialog.get()));
}

// --- Quit messages of the host ---

TEST_F(ModalRunTest, AQuitOfTheHostCancelsTheRunAndIsPostedAgain) {
    for (const std::int32_t code : {0, 1, 5, -7}) {
        const NativeWindow parent = PlainWindow();
        DialogOwner dialog = MadeDialog(host, kTwoButtons, parent);
        State().script.push_back([=] { platform::PostQuit(code); });
        State().script.push_back([] { ADD_FAILURE() << "the loop went on"; });
        EXPECT_FALSE(ZeveRunModal(dialog.get()));
        EXPECT_EQ(State().quit, code);
        EXPECT_TRUE(platform::IsEnabled(parent));
        State().quit.reset();
        State().script.clear();
    }
}

TEST_F(ModalRunTest, AQuitOfTheHostCancelsAllRunsAndIsPostedAgainAfterTheOutermost) {
    DialogOwner dialog = MadeDialog(host);
    bool wasPostedEarly = true;
    host.answer = [&](std::int32_t what, EventRecord& record) -> std::uint64_t {
        if (what != kWhatMessage || record.Read(kKeyEventRecord) != kUser) return kAnswerDefault;
        alertAnswers.push_back(RunAlert(ZeveTopWindow(dialog.get())));
        alertAnswers.push_back(RunAlert(ZeveTopWindow(dialog.get())));
        wasPostedEarly = State().quit.has_value();
        return kAnswerEndPositive;
    };
    ScriptMessage(ZeveTopWindow(dialog.get()), kUser);
    State().script.push_back([] { platform::PostQuit(1); });
    State().script.push_back([] { ADD_FAILURE() << "a loop went on"; });
    EXPECT_FALSE(ZeveRunModal(dialog.get())) << "whatever its host answers later";
    EXPECT_EQ(alertAnswers, (std::vector<bool>{false, false}));
    EXPECT_FALSE(wasPostedEarly);
    EXPECT_EQ(State().quit, 1);
    EXPECT_EQ(CallsOf("PaintNow").size(), 2u) << "the dialog and the first alert are shown";
}

TEST_F(ModalRunTest, NoRunBeginsWhileAQuitIsPending) {
    const NativeWindow parent = PlainWindow();
    DialogOwner dialog = MadeDialog(host, kTwoButtons, parent);
    host.events.clear();
    State().calls.clear();
    platform::PostQuit(3);
    EXPECT_FALSE(ZeveRunModal(dialog.get()));
    EXPECT_EQ(State().quit, 3);
    EXPECT_TRUE(CallsOf("ShowOrHide").empty());
    EXPECT_TRUE(CallsOf("Enable").empty());
    EXPECT_TRUE(host.events.empty());
}

TEST_F(ModalRunTest, AQuitOfTheHostSurvivesAnException) {
    DialogOwner dialog = MadeDialog(host);
    host.answer = [&](std::int32_t what, EventRecord& record) -> std::uint64_t {
        if (what != kWhatMessage || record.Read(kKeyEventRecord) != kUser) return kAnswerDefault;
        RunAlert(ZeveTopWindow(dialog.get()));
        throw std::out_of_range("after the alert");
    };
    ScriptMessage(ZeveTopWindow(dialog.get()), kUser);
    State().script.push_back([] { platform::PostQuit(4); });
    EXPECT_THROW((void)ZeveRunModal(dialog.get()), std::out_of_range);
    EXPECT_EQ(State().quit, 4);
}

} // namespace
} // namespace brixen::zeve
