#include "toolkit/dialog/window_procedures.h"

#include "toolkit/boxes/eve_box.h"
#include "toolkit/dialog/dialog_registry.h"
#include "toolkit/dialog_link.h"
#include "toolkit/kept_exception.h"
#include "toolkit/message_numbers.h"
#include "unit/toolkit/dialog/dialog_fixture.h"

#include <stdexcept>
#include <string>
#include <vector>

namespace brixen::zeve {
namespace {

using headless::CallsOf;
using headless::State;

// A dialog without any description: a box with a window, and its entry in the registry.
class WindowProcedures : public DialogTest {
protected:
    WindowProcedures() {
        root.window = platform::MakeWindow({});
        link.rootBox = &root;
        link.callback = &TestHost::Callback;
        link.callbackParams = &host;
        InstallWindowProcedures();
        platform::TakeDialogProcedure(root.window);
        RegisterDialog(link);
    }
    ~WindowProcedures() override { UnregisterDialog(link); }

    void AnswerMessages(std::uint64_t value) {
        host.answer = [value](std::int32_t, EventRecord&) { return value; };
    }
    // Returns what a message to a control sends, focuses and passes to saved procedures, in order.
    static std::vector<std::string> StepsOf(NativeWindow control, std::uint32_t message,
                                            std::uintptr_t wparam) {
        State().calls.clear();
        platform::Send(control, message, wparam, 0);
        std::vector<std::string> steps;
        for (const headless::Call& call : State().calls)
            if (call.name == "Send" || call.name == "Focus" || call.name == "SavedAnswer")
                steps.push_back(call.name);
        return steps;
    }
    NativeWindow Control() {
        platform::WindowRequest request;
        request.style = 0x40010000;
        request.parent = root.window;
        const NativeWindow control = platform::MakeWindow(request);
        platform::TakeControlProcedure(control);
        return control;
    }

    TestHost host;
    CEveBox root;
    DialogLink link;
};

TEST_F(WindowProcedures, TheHostReceivesEveryMessageWithItsParameters) {
    AnswerMessages(0);
    EXPECT_EQ(DialogProcedure(root.window, kUser, 0xFFFFFFFFFFFFFFF0u, -5), 0);
    ASSERT_EQ(host.events.size(), 1u);
    EXPECT_EQ(host.events[0].what, kWhatMessage);
    EXPECT_EQ(host.events[0].window, root.window);
    EXPECT_EQ(host.events[0].message, kUser);
    EXPECT_EQ(host.events[0].wparam, 0xFFFFFFFFFFFFFFF0u);
    EXPECT_EQ(host.events[0].lparam, -5);
}

TEST_F(WindowProcedures, TheSystemAnswersForAWindowWithoutADialog) {
    const NativeWindow other = PlainWindow();
    State().answer = [](const headless::Message&) { return 17; };
    EXPECT_EQ(DialogProcedure(other, kUser, 1, 2), 17);
    EXPECT_EQ(CallsOf("DefaultAnswer").size(), 1u);
    EXPECT_TRUE(host.events.empty());
}

TEST_F(WindowProcedures, AnswerOneIsTheSystemsDefault) {
    AnswerMessages(1);
    State().answer = [](const headless::Message&) { return 23; };
    EXPECT_EQ(DialogProcedure(root.window, kUser, 1, 2), 23);
    const auto calls = CallsOf("DefaultAnswer");
    ASSERT_EQ(calls.size(), 1u);
    EXPECT_EQ(calls[0].window, root.window);
    EXPECT_EQ(calls[0].numbers, (std::vector<std::int64_t>{kUser, 1, 2}));
}

TEST_F(WindowProcedures, OnlyTheLow32BitsOfTheAnswerDecide) {
    AnswerMessages(0x500000001u);
    DialogProcedure(root.window, kUser, 0, 0);
    EXPECT_EQ(CallsOf("DefaultAnswer").size(), 1u);
}

TEST_F(WindowProcedures, MovingTheFocusIsLeftToTheProcedureOfDialogs) {
    AnswerMessages(1);
    DialogProcedure(root.window, kMessageNextDialogControl, 1, 0);
    EXPECT_EQ(CallsOf("DefaultDialogAnswer").size(), 1u);
    EXPECT_TRUE(CallsOf("DefaultAnswer").empty());
}

TEST_F(WindowProcedures, MovingTheFocusCanBeConsumedLikeAnyMessage) {
    AnswerMessages(0);
    DialogProcedure(root.window, kMessageNextDialogControl, 1, 0);
    EXPECT_TRUE(CallsOf("DefaultDialogAnswer").empty());
}

class ActivatedDialog : public WindowProcedures {
protected:
    ActivatedDialog() {
        AnswerMessages(1);
        platform::ShowOrHide(root.window, true);
        platform::ShowOrHide(field, true);
        platform::Focus(field);
    }

    void GoElsewhereAndComeBack() {
        DialogProcedure(root.window, kMessageActivate, 0, 0);
        platform::Focus(nullptr);
        State().calls.clear();
        DialogProcedure(root.window, kMessageActivate, kByClick, 0);
    }
    void ExpectSystemsAnswer() {
        EXPECT_TRUE(CallsOf("Focus").empty());
        EXPECT_EQ(CallsOf("DefaultAnswer").size(), 1u);
    }

    static constexpr std::uintptr_t kByClick = 2;
    NativeWindow field = Control();
};

TEST_F(ActivatedDialog, HasTheFocusWhereTheUserLeftIt) {
    GoElsewhereAndComeBack();
    const auto calls = CallsOf("Focus");
    ASSERT_EQ(calls.size(), 1u);
    EXPECT_EQ(calls[0].window, field);
    EXPECT_TRUE(CallsOf("DefaultAnswer").empty());
}

TEST_F(ActivatedDialog, LeavesItsFirstFocusToTheSystem) {
    State().calls.clear();
    DialogProcedure(root.window, kMessageActivate, 1, 0);
    ExpectSystemsAnswer();
}

TEST_F(ActivatedDialog, RestoresTheFocusOnce) {
    GoElsewhereAndComeBack();
    State().calls.clear();
    DialogProcedure(root.window, kMessageActivate, 1, 0);
    ExpectSystemsAnswer();
}

TEST_F(ActivatedDialog, LeavesItToTheSystemIfTheControlIsHidden) {
    DialogProcedure(root.window, kMessageActivate, 0, 0);
    platform::ShowOrHide(field, false);
    State().calls.clear();
    DialogProcedure(root.window, kMessageActivate, 1, 0);
    ExpectSystemsAnswer();
}

TEST_F(ActivatedDialog, LeavesItToTheSystemIfTheControlIsDisabled) {
    DialogProcedure(root.window, kMessageActivate, 0, 0);
    platform::Enable(field, false);
    State().calls.clear();
    DialogProcedure(root.window, kMessageActivate, 1, 0);
    ExpectSystemsAnswer();
}

TEST_F(ActivatedDialog, LeavesItToTheSystemIfTheControlIsGone) {
    DialogProcedure(root.window, kMessageActivate, 0, 0);
    platform::CloseWindow(field);
    State().calls.clear();
    DialogProcedure(root.window, kMessageActivate, 1, 0);
    ExpectSystemsAnswer();
}

TEST_F(ActivatedDialog, KeepsNoFocusOfAnotherWindow) {
    platform::Focus(PlainWindow());
    GoElsewhereAndComeBack();
    ExpectSystemsAnswer();
}

TEST_F(WindowProcedures, AnswersTwoAndThreeAreConsumedAndPostNoQuit) {
    for (const std::uint64_t answer : {2u, 3u}) {
        AnswerMessages(answer);
        EXPECT_EQ(DialogProcedure(root.window, kUser, 0, 0), 0);
        EXPECT_TRUE(CallsOf("PostQuit").empty());
        EXPECT_TRUE(CallsOf("DefaultAnswer").empty());
    }
}

TEST_F(WindowProcedures, AnyOtherAnswerConsumesTheMessage) {
    for (const std::uint64_t answer : {std::uint64_t(0), std::uint64_t(4), std::uint64_t(0xFFFFFFFF)}) {
        AnswerMessages(answer);
        EXPECT_EQ(DialogProcedure(root.window, kUser, 0, 0), 0);
    }
    EXPECT_FALSE(State().quit.has_value());
    EXPECT_TRUE(CallsOf("DefaultAnswer").empty());
}

TEST_F(WindowProcedures, TheAnswerToAColorMessageIsTheBrush) {
    AnswerMessages(0x1900AB);
    for (std::uint32_t message = 0x133; message <= 0x138; ++message)
        EXPECT_EQ(DialogProcedure(root.window, message, 0, 0), 0x1900AB) << message;
    EXPECT_EQ(DialogProcedure(root.window, 0x132, 0, 0), 0);
    EXPECT_EQ(DialogProcedure(root.window, 0x139, 0, 0), 0);
}

TEST_F(WindowProcedures, ABrushIsTheLow32BitsOfTheAnswerWithTheirSign) {
    AnswerMessages(0x5001900AB);
    EXPECT_EQ(DialogProcedure(root.window, kMessageColorEdit, 0, 0), 0x1900AB);
    AnswerMessages(0xFFFFFFFF901900AB);
    EXPECT_EQ(DialogProcedure(root.window, kMessageColorEdit, 0, 0),
              static_cast<std::intptr_t>(0xFFFFFFFF901900AB));
}

TEST_F(WindowProcedures, AColorMessageAnsweredWithOneIsLeftToTheSystemAndWithZeroHasNoBrush) {
    State().answer = [](const headless::Message&) { return 99; };
    AnswerMessages(1);
    EXPECT_EQ(DialogProcedure(root.window, kMessageColorStatic, 0, 0), 99);
    AnswerMessages(0);
    EXPECT_EQ(DialogProcedure(root.window, kMessageColorStatic, 0, 0), 0);
}

TEST_F(WindowProcedures, ADialogWithoutACallbackIsLeftToTheSystem) {
    link.callback = nullptr;
    DialogProcedure(root.window, kUser, 0, 0);
    EXPECT_EQ(CallsOf("DefaultAnswer").size(), 1u);
}

TEST_F(WindowProcedures, AnExceptionIsKeptAndTheMessageAnsweredWithZero) {
    host.answer = [](std::int32_t, EventRecord&) -> std::uint64_t { throw std::runtime_error("host"); };
    EXPECT_EQ(DialogProcedure(root.window, kUser, 0, 0), 0);
    EXPECT_TRUE(IsExceptionKept());
    // No loop runs: a quit would end a loop that has nothing to do with it.
    EXPECT_FALSE(State().quit.has_value());
}

TEST_F(WindowProcedures, WhileAnExceptionIsKeptTheHostIsNotAsked) {
    host.answer = [](std::int32_t, EventRecord&) -> std::uint64_t { throw std::runtime_error("host"); };
    DialogProcedure(root.window, kUser, 0, 0);
    State().answer = [](const headless::Message&) { return 31; };
    EXPECT_EQ(DialogProcedure(root.window, kUser, 0, 0), 31) << "the system answers";
    EXPECT_EQ(host.events.size(), 1u);
    ForgetKeptException();
    AnswerMessages(0);
    EXPECT_EQ(DialogProcedure(root.window, kUser, 0, 0), 0);
    EXPECT_EQ(host.events.size(), 2u);
}

TEST_F(WindowProcedures, APaintMessageThatFailsIsPaintedByTheSystem) {
    host.answer = [](std::int32_t, EventRecord&) -> std::uint64_t { throw 1; };
    DialogProcedure(root.window, kMessagePaint, 0, 0);
    EXPECT_EQ(CallsOf("DefaultAnswer").size(), 1u);
}

TEST_F(WindowProcedures, APaintMessageThatFailsTwiceIsAnsweredWithZero) {
    host.answer = [](std::int32_t, EventRecord&) -> std::uint64_t { throw 1; };
    State().answer = [](const headless::Message&) -> std::optional<std::intptr_t> { throw 2; };
    EXPECT_EQ(DialogProcedure(root.window, kMessagePaint, 0, 0), 0);
    EXPECT_TRUE(IsExceptionKept());
}

TEST_F(WindowProcedures, AHostMayDeleteTheDialogThatCallsIt) {
    host.answer = [this](std::int32_t, EventRecord&) {
        UnregisterDialog(link);
        link.rootBox = nullptr;
        return std::uint64_t(3);
    };
    EXPECT_EQ(DialogProcedure(root.window, kUser, 0, 0), 0);
}

TEST_F(WindowProcedures, TheFirstDialogOfTheRegistryWithThatWindowIsAsked) {
    TestHost second;
    DialogLink other;
    other.rootBox = &root;
    other.callback = &TestHost::Callback;
    other.callbackParams = &second;
    RegisterDialog(other);
    DialogProcedure(root.window, kUser, 0, 0);
    UnregisterDialog(other);
    EXPECT_EQ(host.events.size(), 1u);
    EXPECT_TRUE(second.events.empty());
}

// --- Controls ---

TEST_F(WindowProcedures, APressedKeyReachesTheDialogOnceAndAltTwice) {
    const NativeWindow control = Control();
    for (const std::uint32_t message : {kMessageKeyDown, kMessageSystemKeyDown}) {
        host.events.clear();
        platform::Send(control, message, 'A', 3);
        ASSERT_EQ(host.Messages(message).size(), 1u);
        EXPECT_EQ(host.Messages(message)[0].wparam, std::uintptr_t('A'));
        EXPECT_EQ(host.Messages(message)[0].lparam, 3);
        platform::Send(control, message, 18, 3);
        EXPECT_EQ(host.Messages(message).size(), 3u);
    }
}

TEST_F(WindowProcedures, OnlyAltReachesTheDialogWhenReleased) {
    const NativeWindow control = Control();
    for (const std::uint32_t message : {kMessageKeyUp, kMessageSystemKeyUp}) {
        host.events.clear();
        platform::Send(control, message, 'A', 0);
        EXPECT_TRUE(host.events.empty());
        platform::Send(control, message, 18, 0);
        EXPECT_EQ(host.Messages(message).size(), 1u);
    }
}

TEST_F(WindowProcedures, EveryMessageOfAControlGoesToItsSavedProcedure) {
    const NativeWindow control = Control();
    State().answer = [](const headless::Message& message) {
        return static_cast<std::intptr_t>(message.number) + 1;
    };
    for (const std::uint32_t message : {kMessageKeyDown, kMessageKeyUp, kMessageCharacter, kUser})
        EXPECT_EQ(platform::Send(control, message, 9, 0), static_cast<std::intptr_t>(message) + 1);
    EXPECT_EQ(CallsOf("SavedAnswer").size(), 4u);
}

TEST_F(WindowProcedures, TheDialogReceivesAKeyBeforeTheControlItself) {
    EXPECT_EQ(StepsOf(Control(), kMessageKeyDown, 18),
              (std::vector<std::string>{"Send", "Send", "Send", "SavedAnswer"}));
    EXPECT_EQ(StepsOf(Control(), kMessageSystemKeyUp, 18),
              (std::vector<std::string>{"Send", "Send", "SavedAnswer"}));
}

TEST_F(WindowProcedures, AControlIsNotClosed) {
    State().answer = [](const headless::Message&) { return 5; };
    EXPECT_EQ(platform::Send(Control(), kMessageClose, 0, 0), 0);
    EXPECT_TRUE(CallsOf("SavedAnswer").empty());
    EXPECT_TRUE(host.events.empty());
}

TEST_F(WindowProcedures, WithoutASavedProcedureTheAnswerIsZero) {
    State().answer = [](const headless::Message&) { return 5; };
    EXPECT_EQ(ControlProcedure(PlainWindow(), kUser, 0, 0), 0);
}

TEST_F(WindowProcedures, AnExceptionOfAControlsOwnProcedureIsKept) {
    State().answer = [](const headless::Message&) -> std::optional<std::intptr_t> {
        throw std::runtime_error("own");
    };
    for (const auto procedure : {&ControlProcedure, &EditProcedure}) {
        EXPECT_EQ(procedure(Control(), kUser, 0, 0), 0);
        EXPECT_TRUE(IsExceptionKept());
        ForgetKeptException();
    }
}

class TabInAControl : public WindowProcedures {
protected:
    TabInAControl() {
        for (auto& control : controls) control = Control();
        State().nextTabStop = [this](NativeWindow from, bool backwards) {
            const std::size_t i = static_cast<std::size_t>(
                std::find(std::begin(controls), std::end(controls), from) - std::begin(controls));
            return controls[(i + (backwards ? 3 : 1)) % 4];
        };
    }
    void PressTab(NativeWindow control) { platform::Send(control, kMessageCharacter, 9, 0); }

    NativeWindow controls[4] = {};
};

TEST_F(TabInAControl, MovesTheFocusAndTheDefaultFrame) {
    PressTab(controls[0]);
    EXPECT_EQ(State().focus, controls[1]);
    const auto calls = CallsOf("Send");
    ASSERT_FALSE(calls.empty());
    EXPECT_EQ(calls.back().window, controls[1]);
    EXPECT_EQ(calls.back().numbers, (std::vector<std::int64_t>{0xF4, 1, 1}));
}

TEST_F(TabInAControl, MovesBackwardWithShift) {
    State().shiftDown = true;
    PressTab(controls[0]);
    EXPECT_EQ(State().focus, controls[3]);
}

TEST_F(TabInAControl, SkipsDisabledControls) {
    platform::Enable(controls[1], false);
    PressTab(controls[0]);
    EXPECT_EQ(State().focus, controls[2]);
}

TEST_F(TabInAControl, ReturnsToItselfWhenAllOthersAreDisabled) {
    for (int i = 1; i < 4; ++i) platform::Enable(controls[i], false);
    PressTab(controls[0]);
    EXPECT_EQ(State().focus, controls[0]);
}

TEST_F(TabInAControl, EndsAlsoWhereTheWalkNeverReturns) {
    for (int i = 1; i < 4; ++i) platform::Enable(controls[i], false);
    // The system never names the control that the walk started from.
    State().nextTabStop = [this](NativeWindow from, bool) {
        return from == controls[1] ? controls[2] : controls[1];
    };
    PressTab(controls[0]);
    EXPECT_EQ(State().focus, controls[1]);
}

TEST_F(TabInAControl, MovesNothingWhereNoControlCanBeReached) {
    State().nextTabStop = nullptr;
    PressTab(controls[0]);
    EXPECT_EQ(State().focus, nullptr);
}

TEST_F(TabInAControl, MovesTheFocusThenMarksTheButtonThenCallsTheSavedProcedure) {
    // The mark is a message to the next control, which passes it to its own saved procedure.
    EXPECT_EQ(StepsOf(controls[0], kMessageCharacter, 9),
              (std::vector<std::string>{"Send", "Focus", "Send", "SavedAnswer", "SavedAnswer"}));
    EXPECT_EQ(CallsOf("SavedAnswer").back().window, controls[0]);
}

TEST_F(TabInAControl, OtherCharactersMoveNothing) {
    platform::Send(controls[0], kMessageCharacter, 'x', 0);
    EXPECT_TRUE(CallsOf("NextTabStop").empty());
}

class EditControl : public WindowProcedures {
protected:
    EditControl() : edit(Control()) { platform::TakeEditProcedure(edit, &box); }

    CEveBox box;
    NativeWindow edit;
};

TEST_F(EditControl, ReportsToTheDialogWhetherItsTextIsEmpty) {
    for (const std::uint32_t message : {kMessageKeyUp, kMessageSystemKeyUp}) {
        host.events.clear();
        platform::SetText(edit, u"");
        platform::Send(edit, message, 'A', 0);
        platform::SetText(edit, u"x");
        platform::Send(edit, message, 'A', 0);
        const auto reports = host.Messages(0x2002);
        ASSERT_EQ(reports.size(), 2u);
        EXPECT_EQ(reports[0].wparam, 1u);
        EXPECT_EQ(reports[1].wparam, 0u);
        EXPECT_EQ(reports[0].lparam, reinterpret_cast<std::intptr_t>(&box));
    }
}

TEST_F(EditControl, ThenAnswersLikeAnyControl) {
    State().answer = [](const headless::Message& message) -> std::optional<std::intptr_t> {
        if (message.number == kMessageGetTextLength) return 0;
        return 7;
    };
    EXPECT_EQ(platform::Send(edit, kMessageKeyUp, 18, 0), 7);
    EXPECT_EQ(host.Messages(0x2002).size(), 1u);
    EXPECT_EQ(host.Messages(kMessageKeyUp).size(), 1u);
}

TEST_F(EditControl, ReportsBeforeItAnswers) {
    // The first two steps in between ask for the length of its text.
    EXPECT_EQ(StepsOf(edit, kMessageKeyUp, 'A'),
              (std::vector<std::string>{"Send", "Send", "SavedAnswer", "Send", "SavedAnswer"}));
}

TEST_F(EditControl, ReportsNothingForOtherMessages) {
    platform::Send(edit, kMessageKeyDown, 'A', 0);
    platform::Send(edit, kMessageCharacter, 'A', 0);
    EXPECT_TRUE(host.Messages(0x2002).empty());
}

} // namespace
} // namespace brixen::zeve
