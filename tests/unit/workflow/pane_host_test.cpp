#include "workflow/concrete_host.h"

#include "dialog_fixture.h"
#include "dictionaries/translation.h"
#include "toolkit/toolkit_state.h"
#include "workflow/context_keys.h"
#include "workflow/dialog_state_machine.h"
#include "workflow/host_messages.h"
#include "workflow/pane.h"
#include "workflow/pane_helpers.h"
#include "workflow/workflow_context.h"

#include <gmock/gmock.h>

#include <stdexcept>

namespace brixen::pvn::pvn_workflow {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;
using zeve::headless::CallsOf;

constexpr std::uint16_t kNext = 21, kBack = 22, kThrow = 23, kDone = 24, kLeave = 25, kField = 31;
constexpr std::uint16_t kFirstPage = 100, kSecondPage = 200, kPicture = 201;

constexpr char kView[] = R"(
dialog(name: 'Test', width: 300, height: 200, close_box: true) {
    page(view_id: 100, visible: false, enabled: false) { edit_text(view_id: 31, width: 80); }
    page(view_id: 200, visible: false, enabled: false) { picture(view_id: 201, width: 16, height: 16); }
    button(view_id: 21, name: 'Next'); button(view_id: 22, name: 'Back');
    button(view_id: 23, name: 'Throw'); button(view_id: 24, name: 'Done'); button(view_id: 25, name: 'Leave');
})";

class TestPane : public PVNPane {
public:
    TestPane(std::uint16_t page, std::vector<std::string>& notes) : page(page), notes(notes) {}

    void Enter() override {
        Note("enter");
        SetVisible(ref, page, true);
        SetEnabled(ref, page, true);
    }
    void Leave() override {
        Note("leave");
        SetVisible(ref, page, false);
        SetEnabled(ref, page, false);
    }

private:
    void Note(const char* what) {
        const bool locked = zeve::headless::State().locked != nullptr;
        notes.push_back(what + (" " + std::to_string(page)) + (locked ? " locked" : "") +
                        (context ? "" : " without context"));
    }

    std::uint16_t page;
    std::vector<std::string>& notes;
};

class TestHost final : public PVNConcreteHost<TestHost> {
public:
    using PVNConcreteHost::PVNConcreteHost;

    static std::span<const Command> Commands() {
        static constexpr Command kCommands[] = {{kNext, &TestHost::OnNext},
                                                {kBack, &TestHost::OnBack},
                                                {kThrow, &TestHost::OnThrow},
                                                {kDone, &TestHost::OnDone},
                                                {kLeave, &TestHost::OnLeave}};
        return kCommands;
    }

    bool& Repainted() { return RepaintedFlag(); }
    PVNPane* CurrentPane() const { return currentPane; }
    int firstFocus = 0;
    std::function<void()> beforeBack;

private:
    std::intptr_t OnNext() { return DeliverEvent("Continue"); }
    std::intptr_t OnBack() {
        if (beforeBack) beforeBack();
        return DeliverEvent(kEventGoBack);
    }
    std::intptr_t OnDone() { return DeliverEvent("DoneButton"); }
    std::intptr_t OnLeave() { return DeliverEvent("QuitButton"); }
    std::intptr_t OnThrow() { throw std::runtime_error("handler"); }
    void OnFirstFocus() override { ++firstFocus; }
};

class PaneHost : public DialogFixture {
protected:
    PaneHost() {
        Select("en_US");
        for (const std::uint16_t state : {std::uint16_t(1), std::uint16_t(2), std::uint16_t(3)}) {
            machine.SetTransition(state, kWFState_Done, "DoneButton");
            machine.SetTransition(state, kWFState_Exit, "QuitButton");
            machine.SetTransition(state, static_cast<std::uint16_t>(state + 1), "Continue");
        }
        machine.SetTransition(2, kWFState_BackUnset, kEventGoBack);
        machine.SetTransition(3, kWFState_BackUnset, kEventGoBack);
        machine.SetProperty(1, kPropertyPaneObject, &first);
        machine.SetProperty(2, kPropertyPaneObject, &second);
        machine.SetProperty(kWFState_Any, kPropertyWorkflowContext, &context);
        machine.startState = 1;
        host.Repainted() = false;
        SetPtr(bag, PvnWFKey_MainWindow, mainWindow);
    }

    bool Run() { return machine.Run(); }
    // Runs with that done by the user, and then left.
    void RunWith(std::function<void()> action) {
        Then(std::move(action));
        ThenPress(kDone);
        Run();
    }

    T_Storage bag;
    PVNWorkFlowContext context{bag};
    Window mainWindow = MakeMainWindow();
    std::vector<std::string> notes;
    TestPane first{kFirstPage, notes}, second{kSecondPage, notes};
    TestHost host{kView};
    PVNDialogStateMachine machine{host};
};

TEST_F(PaneHost, ThePanesComeAndGoWithTheirStates) {
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

TEST_F(PaneHost, TheFirstPaneEntersTheHiddenWindowUnlocked) {
    RunWith([] {});
    const auto& calls = System().calls;
    const auto nameIs = [](const char* name) {
        return [name](const auto& call) { return call.name == name; };
    };
    const auto greyed = std::find_if(calls.begin(), calls.end(), nameIs("GreyCloseItem"));
    ASSERT_NE(greyed, calls.end());
    EXPECT_EQ(std::find_if(calls.begin(), greyed, nameIs("LockUpdates")), greyed);
    EXPECT_EQ(std::find_if(calls.begin(), greyed, nameIs("Invalidate")), greyed);
    EXPECT_EQ(notes.front(), "enter 100");
}

TEST_F(PaneHost, LeavingAPaneRepaintsTheWindow) {
    RunWith([&] {
        const auto before = CallsOf("Invalidate").size();
        Tell(TopDialog(), zeve::kMessageCommand, kNext);
        EXPECT_EQ(CallsOf("Invalidate").size(), before + 1);
    });
}

// What the window is told about drawing, in order.
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
        EXPECT_THAT(DrawingCalls(), ElementsAre("LockUpdates", "UnlockUpdates", "Invalidate",   // it goes
                                                "LockUpdates", "Invalidate", "UnlockUpdates")); // it comes
        for (const auto& call : CallsOf("LockUpdates")) EXPECT_EQ(call.window, TopDialog());
    });
}

TEST_F(PaneHost, AStateWithoutAPaneShowsWhatWasShownAndIsLeftQuietly) {
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

TEST_F(PaneHost, TheToolkitIsInitialisedBeforeTheDialogIsMade) {
    zeve::ResetToolkit();
    System().calls.clear();
    TestHost other{kView};
    other.Connect(machine, context);
    other.Init();
    EXPECT_EQ(CallsOf("RegisterCommonControls").size(), 1u);
}

TEST_F(PaneHost, EachPaneThatEntersTellsTheContextTheDialog) {
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
    std::vector<void*> dialogs; // that stood when the variables were refreshed
};

TEST_F(PaneHost, TheContextRefreshesItsVariablesOnceTheDialogStands) {
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
    EXPECT_EQ(frame.workflowPhase, kPhaseIdle);
    RunWith([&] { EXPECT_EQ(frame.workflowPhase, kPhaseRunning); });
    EXPECT_EQ(frame.workflowPhase, kPhaseEnded);
}

TEST_F(PaneHost, ClosingTheWindowDoesNothing) {
    RunWith([&] {
        EXPECT_TRUE(zeve::headless::FindWindow(TopDialog())->closeGreyed);
        EXPECT_EQ(Tell(TopDialog(), zeve::kMessageClose), 0);
        EXPECT_EQ(host.CurrentPane(), &first);
        EXPECT_TRUE(CallsOf("PostQuit").empty());
    });
}

TEST_F(PaneHost, AnswersWhatItKnowsAndLeavesTheRest) {
    RunWith([&] {
        const auto route = [&](std::uint32_t number, std::uintptr_t wparam = 0) {
            return host.RouteHostMessage({TopDialog(), number, wparam, 0});
        };
        EXPECT_EQ(route(zeve::kMessageInitDialog), 0);
        EXPECT_EQ(route(zeve::kMessageEraseBackground, 0x77), 0);
        EXPECT_EQ(route(zeve::kMessageKeyDown, 65), 0);
        EXPECT_EQ(route(zeve::kMessageClose), 0);
        EXPECT_EQ(route(zeve::kMessagePaint), 1);
        EXPECT_EQ(route(zeve::kMessageColourStatic), 1);
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

TEST_F(PaneHost, AHandlerUnderWayAtTheEndDeliversNothing) {
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
        EXPECT_THAT(CallsOf("EraseFace").back().numbers, ElementsAre(0x77));
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

TEST_F(PaneHost, AChangedProductNameIsPaintedOnceAClass) {
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

TEST_F(PaneHost, MouseAndCommandsAreTheUsersToo) {
    const std::pair<std::uint32_t, std::uintptr_t> events[] = {
        {kMessageLeftButtonDown, 0},   {kMessageRightButtonDown, 0}, {kMessageMiddleButtonDown, 0},
        {kMessageParentNotify, 0x201}, {kMessageFrameButtonDown, 2}, {zeve::kMessageSystemKeyDown, 18},
        {zeve::kMessageCommand, kBack}};
    for (const auto& [number, wparam] : events) {
        TestHost other{kView};
        PVNDialogStateMachine otherMachine{other};
        otherMachine.SetTransition(1, kWFState_Done, "DoneButton");
        otherMachine.SetProperty(kWFState_Any, kPropertyWorkflowContext, &context);
        otherMachine.startState = 1;
        std::rewind(gLogStream);
        ASSERT_EQ(ftruncate(fileno(gLogStream), 0), 0);
        const auto sent = std::pair(number, wparam);
        Then([sent] { Tell(TopDialog(), sent.first, sent.second); });
        ThenPress(kDone);
        otherMachine.Run();
        EXPECT_THAT(Logged(), HasSubstr("first user event")) << number;
    }
}

TEST_F(PaneHost, AnExceptionOfAHandlerLeavesTheRunAndCleansUp) {
    ThenPress(kThrow);
    EXPECT_THROW(Run(), std::runtime_error);
    EXPECT_EQ(TopDialog(), nullptr);
    EXPECT_TRUE(zeve::platform::IsEnabled(mainWindow));
    EXPECT_EQ(System().locked, nullptr);
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

TEST_F(PaneHost, WithoutAWindowInitThrowsAndNothingIsDisabled) {
    System().refuseWindow = 1;
    EXPECT_THROW(Run(), std::runtime_error);
    EXPECT_TRUE(zeve::platform::IsEnabled(mainWindow));
    EXPECT_TRUE(notes.empty());
}

TEST_F(PaneHost, ADialogDestroyedUnderItsLoopEndsTheRun) {
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

TEST_F(PaneHost, BitmapsAreLoadedForTheRunAndGivenBack) {
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

TEST_F(PaneHost, AFilterGetsTheWholeEvent) {
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
class BrushHost final : public PVNConcreteHost<BrushHost> {
public:
    using PVNConcreteHost::PVNConcreteHost;
    static std::span<const Command> Commands() { return {}; }

    bool ProcessWindowMessage(const WindowMessage& message, std::intptr_t& result) override {
        if (message.number != zeve::kMessageColourStatic)
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
        EXPECT_EQ(other.RouteHostMessage({dialog, zeve::kMessageColourStatic, brush, 0}),
                  static_cast<std::intptr_t>(brush));
        EXPECT_EQ(other.Window(), dialog);
    }
}

TEST_F(PaneHost, EachClassOfHostsHasItsOwnFlagForTheRepaint) {
    class OtherHost final : public PVNConcreteHost<OtherHost> {
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

// The helpers, on a dialog that is open.

class PaneHelpers : public PaneHost {
protected:
    PaneHelpers() {
        host.Connect(machine, context);
        host.Init();
        void* opened = nullptr;
        GetPtr(bag, PvnWFKey_ZeveRef, opened);
        dialog = static_cast<zeve::ZeveDialog*>(opened);
    }
    std::u16string Title() const { return zeve::platform::TextOf(host.Window()); }

    zeve::ZeveDialog* dialog = nullptr;
};

TEST_F(PaneHelpers, ATitleIsThePrefixAndTheText) {
    zeve::AddKeyValue("$$$/pvn/dlg/common/window_title/prefix=Guide: ");
    zeve::AddKeyValue("$$$/pvn/common/window_title=Common");
    zeve::AddKeyValue("$$$/pvn/test/title=T\xC3\xBCr");
    SetWindowTitle("$$$/pvn/test/title", host.Window());
    EXPECT_EQ(Title(), u"Guide: T\u00FCr");
    SetWindowTitle("", host.Window());
    EXPECT_EQ(Title(), u"Guide: Common");
}

TEST_F(PaneHelpers, ATitleIsCutAt255UnitsAndNeverInsideACharacter) {
    zeve::AddKeyValue("$$$/pvn/dlg/common/window_title/prefix=");
    zeve::AddKeyValue("$$$/pvn/test/long=" + std::string(300, 'x'));
    SetWindowTitle("$$$/pvn/test/long", host.Window());
    EXPECT_EQ(Title(), std::u16string(255, u'x'));
    zeve::AddKeyValue("$$$/pvn/test/long=" + std::string(254, 'x') + "\xF0\x9F\x98\x80!");
    SetWindowTitle("$$$/pvn/test/long", host.Window());
    EXPECT_EQ(Title(), std::u16string(254, u'x'));
}

TEST_F(PaneHelpers, AControlShowsATextAsItStands) {
    SetControlText(dialog, kField, "$$$/a=\xC3\xA4");
    EXPECT_EQ(zeve::platform::ControlText(host.Window(), kField), u"$$$/a=\u00E4");
    SetControlText(dialog, 999, "nobody");
}

TEST_F(PaneHelpers, ADefaultButtonGetsStyleFocusAndAPostedFocusMessage) {
    MakeDefaultButton(dialog, kBack);
    EXPECT_EQ(Control(kBack)->style, 0x40010001u);
    EXPECT_EQ(System().focus, Control(kBack)->handle);
    ASSERT_EQ(System().posted.size(), 1u);
    EXPECT_EQ(System().posted[0].window, host.Window());
    EXPECT_EQ(System().posted[0].number, zeve::kMessageSetFocus);
    EXPECT_EQ(System().posted[0].wparam, 0u);
    SetVisible(dialog, kBack, true);
    EXPECT_EQ(Control(kBack)->style, 0x50010001u);
}

TEST_F(PaneHelpers, ANormalButtonAlsoActivatesTheDialog) {
    MakeNormalButton(dialog, kBack);
    EXPECT_EQ(Control(kBack)->style, 0x40010000u);
    EXPECT_EQ(System().focus, Control(kBack)->handle);
    EXPECT_EQ(System().posted.size(), 1u);
    const auto sent = CallsOf("Send").back();
    EXPECT_EQ(sent.window, host.Window());
    EXPECT_THAT(sent.numbers, ElementsAre(6, 1, 0));
}

TEST_F(PaneHelpers, ATabStopIsAddedToTheStyle) {
    Control(kPicture)->style = 0x4000000E;
    AddTabStop(dialog, kPicture);
    EXPECT_EQ(Control(kPicture)->style, 0x4001000Eu);
}

TEST_F(PaneHelpers, APictureIsShownAndTakenBackWithTheDialog) {
    files.Copy("photo.png", Picture("rgba.png"));
    SetResourceRootBelow(files.Utf8());
    ShowBitmapInControl(host, "photo", kPicture);
    const auto shown = Control(kPicture)->remembered[zeve::kStaticSetImage];
    EXPECT_NE(shown, 0);
    const auto living = platform::TheResourceRecorder().liveBitmaps;
    host.Destroy();
    std::vector<std::vector<std::int64_t>> sent;
    for (const auto& call : CallsOf("Send")) sent.push_back(call.numbers);
    EXPECT_THAT(sent, Contains(ElementsAre(zeve::kStaticSetImage, 0, 0)));
    EXPECT_EQ(platform::TheResourceRecorder().liveBitmaps, living);
}

TEST_F(PaneHelpers, APictureReplacesAnEarlierOne) {
    for (const char* name : {"one.png", "two.png", "copy.png"}) files.Copy(name, Picture("rgba.png"));
    SetResourceRootBelow(files.Utf8());
    ShowBitmapInControl(host, "one", kPicture);
    const zeve::NativeBitmap copy = LoadBitmapResource("copy", 3);
    Control(kPicture)->remembered[zeve::kStaticSetImage] = reinterpret_cast<std::intptr_t>(copy);
    auto living = platform::TheResourceRecorder().liveBitmaps;
    living.erase(copy);
    ShowBitmapInControl(host, "two", kPicture);
    const zeve::NativeBitmap two = LoadBitmapResource("two", 3);
    living.insert(two);
    EXPECT_EQ(Control(kPicture)->remembered[zeve::kStaticSetImage], reinterpret_cast<std::intptr_t>(two));
    EXPECT_EQ(platform::TheResourceRecorder().liveBitmaps, living) << "the control's copy is freed";
    host.Destroy();
    EXPECT_EQ(platform::TheResourceRecorder().liveBitmaps, living) << "the layer's stay";
}

TEST_F(PaneHelpers, AMissingPictureIsShownAsNothing) {
    files.Copy("photo.png", Picture("rgba.png"));
    files.Copy("copy.png", Picture("rgba.png"));
    SetResourceRootBelow(files.Utf8());
    const auto shown = [] { return Control(kPicture)->remembered[zeve::kStaticSetImage]; };
    Control(kPicture)->remembered[zeve::kStaticSetImage] = 77;
    ShowBitmapInControl(host, "missing", kPicture);
    EXPECT_EQ(shown(), 0);
    ShowBitmapInControl(host, "photo", kPicture);
    EXPECT_NE(shown(), 0);
    const zeve::NativeBitmap copy = LoadBitmapResource("copy", 3);
    Control(kPicture)->remembered[zeve::kStaticSetImage] = reinterpret_cast<std::intptr_t>(copy);
    auto living = platform::TheResourceRecorder().liveBitmaps;
    living.erase(copy);
    ShowBitmapInControl(host, "missing", kPicture);
    EXPECT_EQ(shown(), 0) << "nor does the earlier one stay";
    EXPECT_EQ(platform::TheResourceRecorder().liveBitmaps, living) << "the control's copy of it is freed";
    ShowBitmapInControl(host, "photo", 999);
}

TEST_F(PaneHelpers, ACopyThatAControlMadeOfItsPictureIsFreed) {
    files.Copy("photo.png", Picture("rgba.png"));
    files.Copy("copy.png", Picture("rgba.png"));
    SetResourceRootBelow(files.Utf8());
    ShowBitmapInControl(host, "photo", kPicture);
    const zeve::NativeBitmap copy = LoadBitmapResource("copy", 3);
    Control(kPicture)->remembered[zeve::kStaticSetImage] = reinterpret_cast<std::intptr_t>(copy);
    auto living = platform::TheResourceRecorder().liveBitmaps;
    host.Destroy();
    living.erase(copy);
    EXPECT_EQ(platform::TheResourceRecorder().liveBitmaps, living);
}

} // namespace
} // namespace brixen::pvn::pvn_workflow
