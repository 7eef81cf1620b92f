#include "workflow/panes/pane_host.h"

#include "unit/workflow/panes/pane_host_fixture.h"
#include "workflow/panes/alert.h"
#include "workflow/panes/window_message.h"
#include "workflow/platform/message_numbers.h"

#include <gmock/gmock.h>

#include <optional>
#include <stdexcept>
#include <string>

namespace brixen::pvn::pvn_workflow {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;
using zeve::headless::CallsOf;

TEST_F(PaneHost, DefinesTheTextsOfItsViewBeforeTheDialogIsMade) {
    TestHost titled("dialog(name: host_title) { button(view_id: 21, name: 'OK'); }");
    titled.Connect(machine, context);
    titled.Init();
    EXPECT_EQ(zeve::platform::TextOf(titled.Window()), u"Titled by its host");
}

TEST_F(PaneHost, EachStateShowsItsPane) {
    ThenPress(kNext);
    Then([&] {
        EXPECT_TRUE(IsControlShown(kPicture));
        EXPECT_FALSE(IsControlShown(kField));
    });
    ThenPress(kBack);
    Then([&] {
        EXPECT_TRUE(IsControlShown(kField));
        EXPECT_FALSE(IsControlShown(kPicture));
    });
    ThenPress(kDone);
    EXPECT_TRUE(Run());
    EXPECT_THAT(notes, ElementsAre("enter 100", "leave 100 locked", "enter 200 locked", "leave 200 locked",
                                   "enter 100 locked", "leave 100 locked"));
    EXPECT_EQ(System().locked, nullptr);
}

TEST_F(PaneHost, TheFirstPaneIsEnteredInAHiddenUnlockedWindow) {
    RunWith([] {});
    const auto& calls = System().calls;
    const auto nameIs = [](const char* name) {
        return [name](const auto& call) { return call.name == name; };
    };
    const auto grayed = std::find_if(calls.begin(), calls.end(), nameIs("GrayCloseItem"));
    ASSERT_NE(grayed, calls.end());
    EXPECT_EQ(std::find_if(calls.begin(), grayed, nameIs("LockUpdates")), grayed);
    EXPECT_EQ(std::find_if(calls.begin(), grayed, nameIs("Invalidate")), grayed);
    EXPECT_EQ(notes.front(), "enter 100");
}

TEST_F(PaneHost, LeavingAPaneRepaintsTheWindow) {
    RunWith([&] {
        const auto before = CallsOf("Invalidate").size();
        Tell(TopDialog(), zeve::kMessageCommand, kNext);
        EXPECT_EQ(CallsOf("Invalidate").size(), before + 1);
    });
}

// The calls that hold drawing back or ask for it, in order.
std::vector<std::string> DrawingCalls() {
    std::vector<std::string> names;
    for (const auto& call : zeve::headless::State().calls) {
        if (call.name == "LockUpdates" || call.name == "UnlockUpdates" || call.name == "Invalidate")
            names.push_back(call.name);
    }
    return names;
}

TEST_F(PaneHost, AChangeOfPanesIsDrawnAtOnce) {
    SetLong(bag, PvnWFKey_HasChangedProductName, 1);
    RunWith([&] {
        System().calls.clear();
        Tell(TopDialog(), zeve::kMessageCommand, kNext);
        EXPECT_THAT(DrawingCalls(),
                    ElementsAre("LockUpdates", "UnlockUpdates", "Invalidate",   // the old pane
                                "LockUpdates", "Invalidate", "UnlockUpdates")); // the new pane
        for (const auto& call : CallsOf("LockUpdates")) EXPECT_EQ(call.window, TopDialog());
    });
}

TEST_F(PaneHost, AStateWithoutAPaneLeavesTheWindowAsItIs) {
    ThenPress(kNext);
    ThenPress(kNext);
    Then([&] { EXPECT_EQ(host.CurrentPane(), nullptr); });
    ThenPress(kBack);
    ThenPress(kDone);
    EXPECT_TRUE(Run());
    EXPECT_THAT(notes, ElementsAre("enter 100", "leave 100 locked", "enter 200 locked", "leave 200 locked",
                                   "enter 200 locked", "leave 200 locked"));
}

TEST_F(PaneHost, DoneIsTrueAndExitIsFalse) {
    ThenPress(kLeave);
    EXPECT_FALSE(Run());
}

TEST_F(PaneHost, TheWindowIsGoneAfterTheRunAndTheParentEnabled) {
    RunWith([&] { EXPECT_FALSE(zeve::platform::IsEnabled(mainWindow)); });
    EXPECT_EQ(TopDialog(), nullptr);
    EXPECT_EQ(host.Window(), nullptr);
    EXPECT_TRUE(zeve::platform::IsEnabled(mainWindow));
}

TEST_F(PaneHost, TheContextKnowsTheOpenDialog) {
    RunWith([&] {
        void* dialog = nullptr;
        ASSERT_TRUE(GetPtr(bag, PvnWFKey_ZeveRef, dialog));
        EXPECT_EQ(zeve::ZeveTopWindow(static_cast<zeve::ZeveDialog*>(dialog)), host.Window());
        EXPECT_EQ(host.Window(), TopDialog());
        EXPECT_EQ(zeve::headless::FindWindow(TopDialog())->instance, zeve::platform::LibraryModule());
    });
}

TEST_F(PaneHost, EachEnteredPanePutsTheDialogIntoTheContext) {
    RunWith([&] {
        void* dialog = nullptr;
        GetPtr(bag, PvnWFKey_ZeveRef, dialog);
        bag.Remove(PvnWFKey_ZeveRef, kValueTypePtr);
        Tell(TopDialog(), zeve::kMessageCommand, kNext);
        void* again = nullptr;
        EXPECT_TRUE(GetPtr(bag, PvnWFKey_ZeveRef, again));
        EXPECT_EQ(again, dialog);
    });
}

// A context with a service folder and with texts of its own.
class ServiceContext : public PVNWorkFlowContext {
public:
    using PVNWorkFlowContext::PVNWorkFlowContext;
    std::string Action(std::string_view name) override {
        return name == "PvnWFAction_GetSVHPath" ? servicePath : PVNWorkFlowContext::Action(name);
    }
    void RefreshDictionaryVariables() override {
        void* opened = nullptr;
        GetPtr(*this, PvnWFKey_ZeveRef, opened);
        dialogs.push_back(opened);
    }

    std::string servicePath;
    std::vector<void*> dialogs; // the open one at each refresh of the variables
};

TEST_F(PaneHost, TheContextRefreshesItsVariablesAfterTheDialogIsMade) {
    ServiceContext own(bag);
    TestHost other{kView};
    other.Connect(machine, own);
    other.Init();
    ASSERT_EQ(own.dialogs.size(), 1u);
    EXPECT_EQ(zeve::ZeveTopWindow(static_cast<zeve::ZeveDialog*>(own.dialogs[0])), other.Window());
}

TEST_F(PaneHost, ItsBitmapsComeFromTheServiceFolderAndTheRestFromTheLibrary) {
    SetResourceRootToLibrary(); // where both bitmaps lie
    ServiceContext own(bag);
    own.servicePath = files.Utf8();
    TestHost other{kView};
    other.Connect(machine, own);
    other.Init();
    EXPECT_EQ(Logged(), "PVN: _info_: Missing Resource(Type: Bitmap, Name: background)\n"
                        "PVN: _info_: Missing Resource(Type: Bitmap, Name: brixenlogo)\n");
    EXPECT_NE(LoadBitmapResource("background", 3), nullptr);
}

TEST_F(PaneHost, ThePhaseFollowsTheRun) {
    EXPECT_EQ(frame.workflowPhase, 0u);
    RunWith([&] { EXPECT_EQ(frame.workflowPhase, 1u); });
    EXPECT_EQ(frame.workflowPhase, 2u);
}

TEST_F(PaneHost, ClosingTheWindowDoesNothing) {
    RunWith([&] {
        EXPECT_TRUE(zeve::headless::FindWindow(TopDialog())->closeGrayed);
        EXPECT_EQ(Tell(TopDialog(), zeve::kMessageClose), 0);
        EXPECT_EQ(host.CurrentPane(), &first);
        EXPECT_TRUE(CallsOf("PostQuit").empty());
    });
}

TEST_F(PaneHost, AnswersItsOwnMessagesAndLeavesTheRestToTheSystem) {
    RunWith([&] {
        const auto route = [&](std::uint32_t number, std::uintptr_t wparam = 0) {
            return host.RouteHostMessage({TopDialog(), number, wparam, 0});
        };
        EXPECT_EQ(route(zeve::kMessageInitDialog), 0);
        EXPECT_EQ(route(zeve::kMessageEraseBackground, 0x77), 0);
        EXPECT_EQ(route(zeve::kMessageKeyDown, 65), 0);
        EXPECT_EQ(route(zeve::kMessageClose), 0);
        EXPECT_EQ(route(zeve::kMessagePaint), 1);
        EXPECT_EQ(route(zeve::kMessageTimer), 1);
        EXPECT_EQ(route(zeve::kMessageCommand, 999), 1);
        EXPECT_EQ(route(zeve::kMessageCommand, kBack), 0);
        EXPECT_EQ(route(0x7777), 1);
    });
}

TEST_F(PaneHost, EndEventsAnswerWithTheirCodesAndOpenTheInputMethod) {
    RunWith([&] {
        const Window dialog = TopDialog();
        const auto before = CallsOf("SetInputMethodOpen").size();
        EXPECT_EQ(host.RouteHostMessage({dialog, zeve::kMessageCommand, kDone, 0}), 2);
        EXPECT_EQ(host.Window(), nullptr);
        ASSERT_EQ(CallsOf("SetInputMethodOpen").size(), before + 1);
        EXPECT_EQ(CallsOf("SetInputMethodOpen").back().window, dialog);
        EXPECT_THAT(CallsOf("SetInputMethodOpen").back().numbers, ElementsAre(1));
    });
}

TEST_F(PaneHost, ExitAnswersThree) {
    RunWith([&] {
        EXPECT_EQ(host.RouteHostMessage({TopDialog(), zeve::kMessageCommand, kLeave, 0}), 3);
        EXPECT_EQ(host.Window(), nullptr);
    });
}

TEST_F(PaneHost, AfterItsEndItHandlesNoCommandAndNoFirstFocus) {
    RunWith([&] {
        const Window dialog = TopDialog();
        host.RouteHostMessage({dialog, zeve::kMessageCommand, kDone, 0});
        EXPECT_EQ(host.RouteHostMessage({dialog, zeve::kMessageCommand, kThrow, 0}), 1);
        EXPECT_EQ(host.RouteHostMessage({dialog, kMessageFirstFocus, 0, 0}), 0);
        EXPECT_EQ(host.firstFocus, 0);
    });
    EXPECT_EQ(machine.CurrentState(), kWFState_Done);
}

TEST_F(PaneHost, AHandlerThatIsStillRunningAtTheEndDeliversNothing) {
    host.beforeBack = [] { Tell(TopDialog(), zeve::kMessageCommand, kDone); };
    ThenPress(kBack);
    EXPECT_TRUE(Run());
    EXPECT_EQ(machine.CurrentState(), kWFState_Done);
}

TEST_F(PaneHost, AKeyClosesTheInputMethod) {
    RunWith([] {
        Tell(TopDialog(), zeve::kMessageKeyDown, 65);
        EXPECT_FALSE(zeve::headless::FindWindow(TopDialog())->inputMethodOpen);
        EXPECT_THAT(CallsOf("SetInputMethodOpen").back().numbers, ElementsAre(0));
    });
}

TEST_F(PaneHost, PaintsTheFaceItselfOnlyInHighContrast) {
    RunWith([&] {
        Tell(TopDialog(), zeve::kMessagePaint);
        EXPECT_TRUE(CallsOf("PaintFace").empty());
        Tell(TopDialog(), zeve::kMessageEraseBackground, 0x77);
        EXPECT_TRUE(CallsOf("EraseFace").empty());
        platform::ThePaneRecorder().isHighContrast = true;
        Tell(TopDialog(), zeve::kMessagePaint);
        EXPECT_EQ(CallsOf("PaintFace").size(), 1u);
        EXPECT_EQ(host.RouteHostMessage({TopDialog(), zeve::kMessagePaint, 0, 0}), 0);
        EXPECT_EQ(host.RouteHostMessage({TopDialog(), zeve::kMessageEraseBackground, 0x88, 0}), 0);
        EXPECT_THAT(CallsOf("EraseFace").back().numbers, ElementsAre(0x88));
    });
}

TEST_F(PaneHost, FocusGoesToTheDefaultButtonOrTheFirstPlainOneOrTheTopChild) {
    RunWith([] {
        const auto focusAfter = [](std::uintptr_t wparam) {
            System().focus = nullptr;
            Tell(TopDialog(), zeve::kMessageSetFocus, wparam);
            return System().focus;
        };
        EXPECT_EQ(focusAfter(0), Control(kNext)->handle);
        Control(kBack)->style = 0x50010001;
        EXPECT_EQ(focusAfter(0), Control(kBack)->handle);
        EXPECT_EQ(focusAfter(0xABCD), nullptr);
        EXPECT_EQ(focusAfter(0xABCD0000), Control(kBack)->handle);
        for (std::uint16_t id : {kNext, kBack, kThrow, kDone, kLeave}) Control(id)->style = 0x40010000;
        EXPECT_EQ(focusAfter(0), zeve::platform::TopChild(TopDialog()));
    });
}

TEST_F(PaneHost, TheFirstFocusMessageActsOnAShownWindowOnly) {
    RunWith([&] {
        const Window dialog = TopDialog();
        Tell(dialog, kMessageFirstFocus);
        EXPECT_EQ(host.firstFocus, 1);
        EXPECT_EQ(CallsOf("Focus").back().window, dialog);
        zeve::platform::ShowOrHide(dialog, false);
        Tell(dialog, kMessageFirstFocus);
        EXPECT_EQ(host.firstFocus, 1);
    });
}

TEST_F(PaneHost, AChangedProductNameIsPaintedOnceForEachClass) {
    SetLong(bag, PvnWFKey_HasChangedProductName, 1);
    RunWith([&] {
        EXPECT_FALSE(host.Repainted());
        const auto before = CallsOf("Invalidate").size();
        Tell(TopDialog(), zeve::kMessageCommand, kNext);
        EXPECT_TRUE(host.Repainted());
        EXPECT_EQ(CallsOf("Invalidate").size(), before + 2);
        Tell(TopDialog(), zeve::kMessageCommand, kBack);
        EXPECT_EQ(CallsOf("Invalidate").size(), before + 3);
    });
}

TEST_F(PaneHost, TheClockIsLoggedAtTheUsersFirstEvent) {
    Then([&] { EXPECT_THAT(Logged(), Not(HasSubstr("first user event"))); });
    Then([&] {
        Tell(TopDialog(), zeve::kMessageSetFocus);
        Tell(TopDialog(), zeve::kMessageTimer);
        Tell(TopDialog(), zeve::kMessageCommand, 0x03000000 | kField); // a pane wrote into a field
        EXPECT_THAT(Logged(), Not(HasSubstr("first user event")));
        Tell(TopDialog(), zeve::kMessageKeyDown, 65);
        EXPECT_THAT(Logged(), HasSubstr("PVN: _time_: dialog receive first user event (clock: "));
    });
    Then([] { Tell(TopDialog(), kMessageLeftButtonDown); });
    ThenPress(kDone);
    Run();
    const std::string log = Logged();
    const std::string label = "dialog receive first user event";
    EXPECT_EQ(log.find(label), log.rfind(label));
}

// Whether a message alone makes a run log the clock of the user's first event.
class FirstUserEvent : public PaneHost {
protected:
    bool IsLoggedFor(std::uint32_t number, std::uintptr_t wparam) {
        TestHost other{kView};
        PVNDialogStateMachine otherMachine{other};
        otherMachine.SetTransition(1, kWFState_Done, "DoneButton");
        otherMachine.SetProperty(kWFState_Any, kPropertyWorkflowContext, &context);
        otherMachine.startState = 1;
        const std::size_t before = Logged().size();
        bool isLogged = false;
        Then([=, &isLogged] {
            Tell(TopDialog(), number, wparam);
            isLogged = Logged().find("first user event", before) != std::string::npos;
        });
        ThenPress(kDone); // an event of the user in any case
        otherMachine.Run();
        EXPECT_NE(Logged().find("first user event", before), std::string::npos);
        return isLogged;
    }
};

TEST_F(FirstUserEvent, IsAKeyAMouseButtonOrACommandOfAControl) {
    const std::pair<std::uint32_t, std::uintptr_t> events[] = {{zeve::kMessageKeyDown, 65},
                                                               {zeve::kMessageSystemKeyDown, 18},
                                                               {kMessageLeftButtonDown, 0},
                                                               {kMessageRightButtonDown, 0},
                                                               {kMessageMiddleButtonDown, 0},
                                                               {kMessageFrameButtonDown, 2},
                                                               {kMessageParentNotify, 0x201},
                                                               {kMessageParentNotify, 0x204},
                                                               {kMessageParentNotify, 0x00150207},
                                                               {zeve::kMessageCommand, kBack},
                                                               {zeve::kMessageCommand, 0x00010000 | kBack}};
    for (const auto& [number, wparam] : events) {
        EXPECT_TRUE(IsLoggedFor(number, wparam)) << std::hex << number << " " << wparam;
    }
}

TEST_F(FirstUserEvent, IsNoMoveOfTheMouseAndNoMessageOfTheSystemOrAPane) {
    const std::pair<std::uint32_t, std::uintptr_t> events[] = {
        {kMessageMouseMove, 1},
        {0x00A0, 2}, // a move on the frame
        {0x0202, 0},
        {0x020A, 0}, // a button up, the wheel
        {zeve::kMessageKeyUp, 65},
        {zeve::kMessageSystemKeyUp, 18},
        {zeve::kMessageTimer, 1},
        {zeve::kMessageSetFocus, 0},
        {zeve::kMessageActivate, 1},
        {zeve::kMessagePaint, 0},
        {kMessageParentNotify, 1},
        {kMessageParentNotify, 2}, // a child made, a child gone
        {kMessageParentNotify, 0x02010001},
        {zeve::kMessageCommand, 0x00020000 | kBack},
        {zeve::kMessageCommand, 0x03000000 | kField}};
    for (const auto& [number, wparam] : events) {
        EXPECT_FALSE(IsLoggedFor(number, wparam)) << std::hex << number << " " << wparam;
    }
}

TEST_F(PaneHost, AnExceptionOfAHandlerLeavesTheRunAndCleansUp) {
    ThenPress(kThrow);
    EXPECT_THROW(Run(), std::runtime_error);
    EXPECT_EQ(TopDialog(), nullptr);
    EXPECT_TRUE(zeve::platform::IsEnabled(mainWindow));
    EXPECT_EQ(System().locked, nullptr);
}

TEST_F(PaneHost, AnExceptionWhileAnAlertIsOpenLeavesTheRunAndAgreesToNothing) {
    files.Write("question.exv", "dialog(name: 'Sure?') { button(view_id: 101, name: 'Yes'); }");
    std::optional<bool> answer;
    host.beforeBack = [&] {
        const Window dialog = TopDialog();
        SetResourceRootBelow(files.Utf8());
        Then([dialog] { Tell(dialog, zeve::kMessageCommand, kThrow); });
        answer = ShowAlert("question", dialog, &context);
    };
    ThenPress(kBack);
    EXPECT_THROW(Run(), std::runtime_error);
    EXPECT_NE(answer, std::optional(true));
    EXPECT_EQ(TopDialog(), nullptr);
    EXPECT_TRUE(zeve::platform::IsEnabled(mainWindow));
    EXPECT_TRUE(System().script.empty());
}

class ThrowingPane : public PVNPane {
    void Enter() override { throw std::runtime_error("enter"); }
};

TEST_F(PaneHost, AnExceptionOfAPaneReleasesTheScreen) {
    ThrowingPane throwing;
    machine.RemoveProperty(2, kPropertyPaneObject);
    machine.SetProperty(2, kPropertyPaneObject, static_cast<PVNPane*>(&throwing));
    ThenPress(kNext);
    EXPECT_THROW(Run(), std::runtime_error);
    EXPECT_EQ(CallsOf("LockUpdates").size(), 2u);
    EXPECT_EQ(CallsOf("UnlockUpdates").size(), 2u);
    EXPECT_TRUE(zeve::platform::IsEnabled(mainWindow));
}

TEST_F(PaneHost, AnUnreadableViewIsLoggedWithItsFile) {
    TestHost other{"dialog( {", "welcome"};
    other.Connect(machine, context);
    EXPECT_THROW(other.Init(), std::logic_error);
    EXPECT_THAT(Logged(), HasSubstr("PVN: _info_: View cannot be read(File: "));
    EXPECT_THAT(Logged(), HasSubstr("\\PVResources\\welcome.exv, Reason: Warning! (*definition == 0))\n"));
    EXPECT_THAT(Logged(), Not(HasSubstr("Missing Resource(Type: Exvw")));
}

TEST_F(PaneHost, AViewWhoseRootIsNoDialogIsLoggedWithItsFile) {
    TestHost other{"button(name: 'OK');", "welcome"};
    other.Connect(machine, context);
    EXPECT_THROW(other.Init(), std::runtime_error);
    EXPECT_THAT(Logged(), HasSubstr("PVN: _info_: View has no window(File: "));
    EXPECT_THAT(Logged(), HasSubstr("\\PVResources\\welcome.exv, Reason: "));
}

TEST_F(PaneHost, WithoutAWindowInitThrowsAndNothingIsDisabled) {
    System().refuseWindow = 1;
    EXPECT_THROW(Run(), std::runtime_error);
    EXPECT_TRUE(zeve::platform::IsEnabled(mainWindow));
    EXPECT_TRUE(notes.empty());
}

TEST_F(PaneHost, ADialogThatIsDestroyedEndsItsRun) {
    Then([] { zeve::platform::CloseWindow(TopDialog()); });
    EXPECT_FALSE(Run());
    EXPECT_TRUE(zeve::platform::IsEnabled(mainWindow));
}

TEST_F(PaneHost, ARunWithoutAContextIsRefused) {
    machine.RemoveProperty(kWFState_Any, kPropertyWorkflowContext);
    EXPECT_THROW(Run(), std::logic_error);
}

TEST_F(PaneHost, FieldsKeepTheirTextBetweenVisits) {
    Then([] { zeve::platform::SetControlText(TopDialog(), kField, u"kept"); });
    ThenPress(kNext);
    ThenPress(kBack);
    Then([] { EXPECT_EQ(zeve::platform::ControlText(TopDialog(), kField), u"kept"); });
    ThenPress(kDone);
    Run();
}

TEST_F(PaneHost, BitmapsAreLoadedForTheRunAndReleased) {
    files.Copy("background.png", Picture("rgb.png"));
    files.Copy("brixenlogo.png", Picture("rgba.png"));
    {
        TestHost other{kView};
        other.Connect(machine, context);
        other.Init();
        EXPECT_EQ(platform::TheResourceRecorder().liveBitmaps.size(), 2u);
    }
    EXPECT_TRUE(platform::TheResourceRecorder().liveBitmaps.empty());
}

TEST_F(PaneHost, OnlyTwoLanguagesTurnRightToLeftOn) {
    const std::pair<const char*, bool> cases[] = {{"en_US", false}, {"ar_SA", false}, {"he", false},
                                                  {"HE_IL", false}, {"ar_AE", true},  {"he_IL", true}};
    for (const auto& [language, isMirrored] : cases) {
        SetString(bag, PvnWFKey_Language, language);
        TestHost other{kView};
        other.Connect(machine, context);
        other.Init();
        const bool hasRightReading = (Control(kField)->extendedStyle & 0x2000) != 0;
        EXPECT_EQ(hasRightReading, isMirrored) << language;
    }
}

TEST_F(PaneHost, ItsBackdropIsNotDrawnOverItsControls) {
    constexpr std::uint32_t kClipsChildren = 0x02000000;
    RunWith([] { EXPECT_NE(zeve::platform::StyleOf(TopDialog()) & kClipsChildren, 0u); });
    TestHost framed("dialog(name: 'x') { button(view_id: 24, name: 'Done'); cluster(name: 'Group'); }");
    framed.Connect(machine, context);
    framed.Init();
    EXPECT_EQ(zeve::platform::StyleOf(framed.Window()) & kClipsChildren, 0u)
        << "a group box shows the backdrop inside its frame";
}

TEST_F(PaneHost, PassesAChangeOfTheSystemsColorsToItsControls) {
    std::vector<Window> told;
    System().answer = [&told](const zeve::headless::Message& message) -> std::optional<std::intptr_t> {
        if (message.number == kMessageSystemColors && message.window != TopDialog())
            told.push_back(message.window);
        return std::nullopt;
    };
    RunWith([&told] {
        Tell(TopDialog(), kMessageSystemColors);
        std::size_t children = 0;
        for (const auto& window : System().windows) children += window->parent == TopDialog() ? 1u : 0u;
        EXPECT_GT(children, 5u);
        EXPECT_EQ(told.size(), children);
    });
}

TEST_F(PaneHost, FillsThePlacesOfHyperlinks) {
    RunWith([] {
        ASSERT_NE(Control(kLink), nullptr);
        EXPECT_EQ(Control(kLink)->className, u"static");
        EXPECT_EQ(Control(kLink)->text, u"More");
    });
}

// A radio button reports the focus (6), a static text that it was disabled (3).
TEST_F(PaneHost, ANotificationThatIsNoUseOfTheControlPressesNothing) {
    RunWith([this] {
        for (const std::uintptr_t code : std::vector<std::uintptr_t>{2, 3, 5, 6})
            Tell(TopDialog(), zeve::kMessageCommand, code << 16 | kNext);
        EXPECT_EQ(host.CurrentPane(), &first);
        Tell(TopDialog(), zeve::kMessageCommand, 1 << 16 | kNext);
        EXPECT_EQ(host.CurrentPane(), &second);
    });
}

TEST_F(PaneHost, EnterOnALinkIsTheLinksAlone) {
    std::intptr_t dialogCode = 0;
    System().answer = [&dialogCode](const zeve::headless::Message& message) -> std::optional<std::intptr_t> {
        if (message.number != kMessageDialogCode) return std::nullopt;
        return message.window == Control(kLink)->handle ? dialogCode : 0;
    };
    RunWith([&] {
        zeve::platform::Focus(Control(kLink)->handle);
        for (const std::intptr_t link : {0x80, 0x2080}) {
            dialogCode = link;
            Tell(TopDialog(), zeve::kMessageCommand, kIdEnter);
            EXPECT_EQ(host.enters, 0);
        }
        Tell(TopDialog(), zeve::kMessageCommand, kNext);
        EXPECT_EQ(host.CurrentPane(), &second) << "only Enter is the link's";
        for (const std::intptr_t other : {0x81, 0x89, 0x2010, 0x2000, 0}) {
            dialogCode = other;
            host.enters = 0;
            Tell(TopDialog(), zeve::kMessageCommand, kIdEnter);
            EXPECT_EQ(host.enters, 1) << other;
        }
    });
}

TEST_F(PaneHost, APaneFiltersEventsByNameOnRequest) {
    PVNPane pane;
    zeve::EventRecord record;
    record.StorePointer(zeve::kKeyWindow, nullptr);
    record.Store(zeve::kKeyEventRecord, zeve::kMessageClose);
    record.Store(zeve::kKeyWparam, 0);
    record.Store(zeve::kKeyLparam, 0);
    EXPECT_EQ(pane.HandleZeveEvent(record), "ZeveCloseWindow");
    record.Store(zeve::kKeyEventRecord, zeve::kMessageCommand);
    EXPECT_EQ(pane.HandleZeveEvent(record), "ZevePassUpEventChain");
}

TEST_F(PaneHost, AFilterReceivesTheWholeEvent) {
    class Filter : public PVNPane {
        std::string ProcessEvent(Window window, std::uint32_t message, std::uintptr_t wparam,
                                 std::intptr_t lparam) override {
            return std::to_string(reinterpret_cast<std::uintptr_t>(window)) + " " + std::to_string(message) +
                   " " + std::to_string(wparam) + " " + std::to_string(lparam);
        }
    } pane;
    zeve::EventRecord record;
    record.StorePointer(zeve::kKeyWindow, reinterpret_cast<Window>(std::uintptr_t{11}));
    record.Store(zeve::kKeyEventRecord, 12);
    record.Store(zeve::kKeyWparam, 13);
    record.Store(zeve::kKeyLparam, -14);
    EXPECT_EQ(pane.HandleZeveEvent(record), "11 12 13 -14");
}

// A host that has a brush for static texts.
class BrushHost final : public PVNConcreteHost<BrushHost, PVNPane> {
public:
    using PVNConcreteHost::PVNConcreteHost;
    static std::span<const Command> Commands() { return {}; }

    bool ProcessWindowMessage(const WindowMessage& message, std::intptr_t& result) override {
        if (message.number != zeve::kMessageColorStatic)
            return PVNPaneHost::ProcessWindowMessage(message, result);
        result = static_cast<std::intptr_t>(message.wparam);
        return true;
    }
};

TEST_F(PaneHost, ABrushForAStaticTextIsAnsweredAndNeverAnEnd) {
    BrushHost other{kView};
    other.Connect(machine, context);
    other.Init();
    const Window dialog = other.Window();
    for (const std::uintptr_t brush : {0u, 1u, 2u, 3u, 0x1234u}) {
        EXPECT_EQ(other.RouteHostMessage({dialog, zeve::kMessageColorStatic, brush, 0}),
                  static_cast<std::intptr_t>(brush));
        EXPECT_EQ(other.Window(), dialog);
    }
}

TEST_F(PaneHost, EachClassOfHostsHasItsOwnFlagForTheRepaint) {
    class OtherHost final : public PVNConcreteHost<OtherHost, PVNPane> {
    public:
        using PVNConcreteHost::PVNConcreteHost;
        static std::span<const Command> Commands() { return {}; }
        using PVNConcreteHost::RepaintedFlag;
    } other{kView};
    TestHost another{kView};
    host.Repainted() = true;
    EXPECT_TRUE(another.Repainted());
    EXPECT_FALSE(other.RepaintedFlag());
}

} // namespace
} // namespace brixen::pvn::pvn_workflow
