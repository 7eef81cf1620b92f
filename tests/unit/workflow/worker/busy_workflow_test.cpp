// A whole workflow with a busy pane, over the twin of the window system and with real threads.
#include "dictionaries/translation.h"
#include "net/platform/posix/net_twin.h"
#include "net/transport/call_limit.h"
#include "unit/workflow/worker/fake_operation.h"
#include "workflow/controls/busy_bar.h"
#include "workflow/panes/concrete_host.h"
#include "workflow/panes/dialog_state_machine.h"
#include "workflow/panes/page_pane.h"
#include "workflow/platform/headless/accessible_recorder.h"
#include "workflow/run_workflow.h"
#include "workflow/worker/busy_pane.h"
#include "workflow/worker/operation_host.h"
#include "workflow/workflow.h"

#include <gmock/gmock.h>

#include <stdexcept>

namespace brixen::pvn::pvn_workflow {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::Pair;
using zeve::headless::CallsOf;
using zeve::headless::FireTimer;

constexpr char kView[] = R"(
dialog(name: 'Test', width: 300, height: 200) {
    pages(placement: place_offscreen) {
        form(view_id: 100, visible: false, enabled: false) { static_text(name: 'Form'); }
        busy(view_id: 200, visible: false, enabled: false) {
            static_text(view_id: 202, name: 'Status', width: 100);
            picture(view_id: 201, width: 100, height: 13);
            static_text(view_id: 203, visible: false, name: 'Note', width: 100);
        }
        result(view_id: 300, visible: false, enabled: false) { static_text(name: 'Result'); }
    }
    button(view_id: 11, visible: false, name: 'Go');
    button(view_id: 12, visible: false, name: 'Again');
    button(view_id: 13, visible: false, name: 'Done');
    button(view_id: 14, visible: false, name: 'Leave');
    button(view_id: 15, visible: false, name: 'At once');
    button(view_id: 16, visible: false, name: 'Cancel');
})";
constexpr std::uint16_t kGo = 11, kAgain = 12, kDone = 13, kLeave = 14, kHere = 15, kCancel = 16;
constexpr std::uint16_t kFormPage = 100, kBusyPage = 200, kBar = 201, kStatusText = 202, kNote = 203,
                        kResultPage = 300;

constexpr std::uint16_t kFormState = 1, kBusyState = 2, kSuccessState = 3, kNoConnectionState = 4,
                        kUnavailableState = 5, kDeniedState = 6;

constexpr std::uint16_t kFormButtons[] = {kGo, kHere, kLeave};
constexpr std::uint16_t kResultButtons[] = {kAgain, kDone, kLeave};
constexpr PageTraits kFormTraits{"", kFormPage, kFormButtons, kGo};
constexpr PageTraits kBusyPageTraits{"$$$/test/busy", kBusyPage, {}, kNoButton};
constexpr PageTraits kResultTraits{"", kResultPage, kResultButtons, kDone};
constexpr BusyTraits kBusyTraits{kFakeOperations[0], kBar, kStatusText, kCancel, kNote};
constexpr BusyTraits kSecondTraits{kFakeOperations[0],       kBar, kStatusText, kCancel, kNote,
                                   kMessageStartSecondWorker};

// What a test reads of the run, and how it begins.
struct Plan {
    bool hasSecondMessage = false;
    bool ignoresSuccess = false;
    PVNDialogStateMachine* machine = nullptr;
    FakeContext* context = nullptr;
    BusyPane* pane = nullptr;
    zeve::NativeWindow dialog = nullptr;
};
Plan gPlan;

class BusyHost final : public PVNConcreteHost<BusyHost, PagePane, OperationHost> {
public:
    using PVNConcreteHost::PVNConcreteHost;
    static std::span<const Command> Commands() {
        static constexpr Command kCommands[] = {
            {kGo, &BusyHost::OnGo},     {kAgain, &BusyHost::OnGo},
            {kDone, &BusyHost::OnDone}, {kLeave, &BusyHost::OnLeave},
            {kHere, &BusyHost::OnHere}, {kCancel, &BusyHost::OnCancelOfBusyPane}};
        return kCommands;
    }

private:
    std::intptr_t OnGo() { return DeliverEvent("Continue"); }
    std::intptr_t OnDone() { return DeliverEvent("DoneButton"); }
    std::intptr_t OnLeave() { return DeliverEvent("QuitButton"); }
    // Runs the operation on this thread; its end is polled for.
    std::intptr_t OnHere() {
        EXPECT_EQ(context->Action("PvnWF_Fake"), "InProgress");
        return 0;
    }
};

class BusyWorkFlow final : public PVNWorkFlow {
public:
    using Context = FakeContext;
    explicit BusyWorkFlow(FakeContext& context) : PVNWorkFlow(context) { gPlan.context = &context; }

    void Build(bool demo) override {
        SetHost(std::make_unique<BusyHost>(kView));
        gPlan.machine = machine.get();
        machine->SetTransition(kFormState, kBusyState, "Continue");
        machine->SetTransition(kFormState, kSuccessState, "Succeeded");
        if (!gPlan.ignoresSuccess) machine->SetTransition(kBusyState, kSuccessState, "Succeeded");
        machine->SetTransition(kBusyState, kNoConnectionState, kEventNoConnection);
        machine->SetTransition(kBusyState, kUnavailableState, kEventServerUnavailable);
        machine->SetTransition(kBusyState, kDeniedState, kEventTransactionDenied);
        machine->SetTransition(kBusyState, kFormState, kEventCanceledByUser);
        machine->SetTransition(kBusyState, kDeniedState, kActionInProgress); // no answer of a start
        for (std::uint16_t state = kSuccessState; state <= kDeniedState; ++state) {
            machine->SetTransition(state, kBusyState, "Continue");
            machine->SetTransition(state, kWFState_Done, "DoneButton");
        }
        for (std::uint16_t state = kFormState; state <= kDeniedState; ++state) {
            machine->SetTransition(state, kWFState_Exit, "QuitButton");
        }
        SetPane(kFormState, std::make_unique<PagePane>(kFormTraits));
        auto busy = std::make_unique<BusyPane>(kBusyPageTraits,
                                               gPlan.hasSecondMessage ? kSecondTraits : kBusyTraits, demo);
        gPlan.pane = busy.get();
        SetPane(kBusyState, std::move(busy));
        for (std::uint16_t state = kSuccessState; state <= kDeniedState; ++state) {
            SetPane(state, std::make_unique<PagePane>(kResultTraits));
        }
        machine->startState = kFormState;
    }
    using PVNWorkFlow::host;
    using PVNWorkFlow::machine;
};

class BusyPanes : public OperationFixture {
protected:
    BusyPanes() {
        gPlan = Plan();
        platform::TheAccessibleRecorder().Reset();
        SetString(bag, PvnWFKey_Language, "en_US");
        SetPtr(bag, PvnWFKey_MainWindow, mainWindow);
        SetLong(bag, PvnWFKey_AllowCancel, 1);
        zeve::AddKeyValue("$$$/pvn/busy/waiting=Waiting");
        zeve::AddKeyValue("$$$/pvn/busy/canceling=Canceling");
    }
    ~BusyPanes() override { gate.Open(); }

    std::uint16_t Run() {
        const std::uint16_t status = RunWorkFlowFromBag<BusyWorkFlow>(bag);
        EXPECT_TRUE(System().script.empty()) << "the user has done everything";
        return status;
    }
    void WorkWaits() {
        gFakeWork.work = [this](auto&, auto&) {
            gate.Pass();
            return kStatusSuccess;
        };
    }
    void WorkWaitsForCancel() {
        gFakeWork.work = [](auto&, const WorkerNotifier& notifier) {
            while (notifier.Report(1)) std::this_thread::yield();
            return kStatusCallCanceled;
        };
    }
    static bool Tick() { return FireTimer(TopDialog(), kProgressTimer); }
    static void ThenAwaitTheEnd() {
        Then([] {
            AwaitEnd();
            EXPECT_TRUE(Tick());
        });
    }
    // A cancel before the work has begun would end it at once.
    static void ThenAwaitTheWork() {
        Then([] {
            while (gFakeWork.calls == 0) std::this_thread::yield();
        });
    }
    static void ThenExpectState(std::uint16_t state) {
        Then([state] { EXPECT_EQ(gPlan.machine->CurrentState(), state); });
    }
    static Window WindowOf(std::uint16_t id) { return Control(id)->handle; }
    // The left edges at which a paint of the bar draws the cell.
    static std::vector<std::int64_t> CellsPainted() {
        platform::ThePaintingRecorder().calls.clear();
        Tell(WindowOf(kBar), zeve::kMessagePaint);
        std::vector<std::int64_t> lefts;
        for (const auto& call : platform::PaintingCallsOf("BlendBitmap")) lefts.push_back(call.numbers[0]);
        return lefts;
    }
    static auto& TimersOf(Window window) { return zeve::headless::FindWindow(window)->timers; }
    std::uint32_t Result() { return LongOf(bag, PvnWFKey_WorkFlowResult).value_or(0); }

    T_Storage bag;
    Window mainWindow = MakeMainWindow();
    Gate gate;
};

TEST_F(BusyPanes, TheBusyRowHasATransitionForEachResult) {
    ThenPress(kGo);
    Then([] {
        for (const std::string& event : EventsOfResults(*gPlan.context)) {
            EXPECT_TRUE(gPlan.machine->CanHandleEvent(event)) << event;
        }
        EXPECT_TRUE(gPlan.machine->CanHandleEvent(kFakeOperations[0].successEvent));
    });
    ThenAwaitTheEnd();
    ThenPress(kDone);
    Run();
}

TEST_F(BusyPanes, EachResultLeadsToItsPane) {
    constexpr std::pair<int, std::uint16_t> kResults[] = {
        {0, kSuccessState},           {0x8501, kDeniedState},       {0x8502, kUnavailableState},
        {0x85FF, kUnavailableState},  {0x8500, kNoConnectionState}, {0xD001, kNoConnectionState},
        {0xD002, kNoConnectionState}, {0xD003, kNoConnectionState}, {0xD0A1, kNoConnectionState},
        {0xD0A3, kNoConnectionState}, {0xD0B1, kNoConnectionState}, {0xD0B2, kNoConnectionState},
        {0xD0B3, kNoConnectionState}, {0x8206, kNoConnectionState}, {0x8209, kNoConnectionState},
        {0x8600, kNoConnectionState},
    };
    for (const auto& [status, state] : kResults) {
        WorkReturns(static_cast<Status>(status));
        ThenPress(kGo);
        ThenExpectState(kBusyState);
        ThenAwaitTheEnd();
        ThenExpectState(state);
        Then([this, wanted = status] { EXPECT_EQ(Result(), static_cast<std::uint32_t>(wanted)); });
        ThenPress(kLeave);
        EXPECT_EQ(Run(), status);
    }
}

TEST_F(BusyPanes, ASuccessCanBeDone) {
    ThenPress(kGo);
    ThenAwaitTheEnd();
    ThenPress(kDone);
    EXPECT_EQ(Run(), 0);
}

TEST_F(BusyPanes, AFailedOperationCanBeTriedAgain) {
    WorkReturns(0x8502);
    ThenPress(kGo);
    ThenAwaitTheEnd();
    ThenExpectState(kUnavailableState);
    Then([] { WorkReturns(0); });
    ThenPress(kAgain);
    ThenExpectState(kBusyState);
    ThenAwaitTheEnd();
    ThenExpectState(kSuccessState);
    ThenPress(kDone);
    EXPECT_EQ(Run(), 0);
    EXPECT_EQ(gFakeWork.calls, 2);
}

TEST_F(BusyPanes, ARefusedThreadLeadsToAFailure) {
    GetFrameTwin().startsUntilRefusal = 1;
    ThenPress(kGo);
    ThenAwaitTheEnd();
    ThenExpectState(kNoConnectionState);
    ThenPress(kLeave);
    EXPECT_EQ(Run(), kStatusNoThread);
    EXPECT_EQ(gFakeWork.calls, 0);
}

TEST_F(BusyPanes, TheEnteredPaneIsShownAndItsBarRuns) {
    WorkWaits();
    ThenPress(kGo);
    Then([this] {
        EXPECT_TRUE(IsControlShown(kBar));
        EXPECT_TRUE(IsControlShown(kStatusText));
        EXPECT_TRUE(IsControlShown(kNote));
        EXPECT_TRUE(IsControlShown(kCancel));
        EXPECT_FALSE(IsControlShown(kGo));
        EXPECT_TRUE(zeve::platform::IsEnabled(WindowOf(kCancel)));
        EXPECT_EQ(Control(kStatusText)->text, u"Waiting");
        EXPECT_THAT(TimersOf(WindowOf(kBar)), ElementsAre(Pair(kBusyTimer, kBusyPeriod)));
        EXPECT_TRUE(FireTimer(WindowOf(kBar), kBusyTimer));
        EXPECT_THAT(CellsPainted(), ElementsAre(9));
        EXPECT_THAT(TimersOf(TopDialog()), ElementsAre(Pair(kProgressTimer, kProgressPeriod)));
        void* pane = nullptr;
        EXPECT_TRUE(GetPtr(bag, PvnWFKey_CurrentPane, pane));
        EXPECT_EQ(pane, static_cast<PVNPane*>(gPlan.pane));
        zeve::headless::FindWindow(TopDialog())->closeGrayed = false;
        gate.Open();
    });
    ThenAwaitTheEnd();
    Then([this] {
        EXPECT_FALSE(IsControlShown(kBar));
        EXPECT_FALSE(IsControlShown(kNote));
        EXPECT_FALSE(IsControlShown(kCancel));
        EXPECT_TRUE(IsControlShown(kDone));
        EXPECT_TRUE(TimersOf(WindowOf(kBar)).empty());
        EXPECT_TRUE(TimersOf(TopDialog()).empty());
        void* pane = this;
        EXPECT_TRUE(GetPtr(bag, PvnWFKey_CurrentPane, pane));
        EXPECT_EQ(pane, nullptr);
        EXPECT_TRUE(zeve::headless::FindWindow(TopDialog())->closeGrayed);
    });
    ThenPress(kDone);
    Run();
}

TEST_F(BusyPanes, APaintIsPostedBeforeTheStart) {
    for (const bool hasSecond : {false, true}) {
        gPlan.hasSecondMessage = hasSecond;
        System().calls.clear();
        ThenPress(kGo);
        Then([hasSecond] {
            std::vector<std::int64_t> posted;
            for (const auto& call : CallsOf("Post")) {
                if (call.window == TopDialog() && call.numbers[0] != zeve::kMessageSetFocus) {
                    posted.push_back(call.numbers[0]);
                }
            }
            EXPECT_THAT(posted, ElementsAre(15, hasSecond ? 5685 : 5684));
        });
        ThenAwaitTheEnd();
        ThenPress(kDone);
        EXPECT_EQ(Run(), 0);
    }
    EXPECT_EQ(gFakeWork.calls, 2);
}

TEST_F(BusyPanes, TheFocusIsOnTheDialog) {
    WorkWaits();
    Then([] { System().calls.clear(); });
    ThenPress(kGo);
    Then([this] {
        EXPECT_EQ(std::ranges::count(CallsOf("Focus"), TopDialog(), &zeve::headless::Call::window), 1);
        EXPECT_EQ(CallsOf("Focus").back().window, WindowOf(kCancel))
            << "the dialog passes it to its only button";
        gate.Open();
    });
    ThenAwaitTheEnd();
    ThenPress(kDone);
    Run();
}

TEST_F(BusyPanes, TheStartInvalidatesTheDialogAndDropsItsResult) {
    WorkWaits();
    ThenPress(kGo);
    Then([this] {
        EXPECT_EQ(CallsOf("Invalidate").back().window, TopDialog());
        EXPECT_EQ(gPlan.machine->CurrentState(), kBusyState);
        gate.Open();
    });
    ThenAwaitTheEnd();
    ThenPress(kDone);
    Run();
}

TEST_F(BusyPanes, AStartMessageThatComesLateOrTwiceStartsNothing) {
    WorkWaits();
    Then([] { Tell(TopDialog(), kMessageStartWorker); });
    ThenPress(kGo);
    Then([this] {
        for (const auto message : {kMessageStartWorker, kMessageStartSecondWorker})
            Tell(TopDialog(), message);
        gate.Open();
    });
    ThenAwaitTheEnd();
    Then([] { Tell(TopDialog(), kMessageStartWorker); });
    ThenPress(kDone);
    Run();
    EXPECT_EQ(gFakeWork.calls, 1);
}

TEST_F(BusyPanes, ATickBeforeTheEndChangesNothing) {
    WorkWaits();
    ThenPress(kGo);
    Then([this] {
        for (int tick = 0; tick < 3; ++tick) EXPECT_TRUE(Tick());
        Tell(TopDialog(), zeve::kMessageTimer, 77);
        EXPECT_EQ(gPlan.machine->CurrentState(), kBusyState);
        EXPECT_EQ(Result(), kStatusUserCancel) << "no outcome yet";
        gate.Open();
    });
    ThenAwaitTheEnd();
    ThenPress(kDone);
    EXPECT_EQ(Run(), 0);
}

TEST_F(BusyPanes, AnyTimerOfTheDialogTakesTheEndOnce) {
    WorkReturns(0x8501);
    ThenPress(kGo);
    Then([] {
        AwaitEnd();
        Tell(TopDialog(), zeve::kMessageTimer, 77);
        EXPECT_EQ(gPlan.machine->CurrentState(), kDeniedState);
        EXPECT_EQ(gProgressPercent(), 0);
        EXPECT_EQ(gPlan.context->ProgressTimer().TimerId(), kProgressTimer) << "it stays as it is";
        SetLong(*gPlan.context, PvnWFKey_WorkFlowResult, 1);
        Tell(TopDialog(), zeve::kMessageTimer, 77);
        EXPECT_EQ(LongOf(*gPlan.context, PvnWFKey_WorkFlowResult), 1u);
    });
    ThenPress(kLeave);
    EXPECT_EQ(Run(), 1);
}

TEST_F(BusyPanes, AFullBarIsOneCellAgainWhenThePaneIsLeft) {
    ThenPress(kGo);
    Then([] {
        AwaitEnd();
        EXPECT_TRUE(Tick());
        EXPECT_THAT(CellsPainted(), ElementsAre(0));
    });
    ThenPress(kDone);
    Run();
}

TEST_F(BusyPanes, ASuccessThatLeadsNowhereStaysWithAFullBarAndNoPoll) {
    gPlan.ignoresSuccess = true;
    ThenPress(kGo);
    Then([] {
        AwaitEnd();
        EXPECT_TRUE(Tick());
        EXPECT_EQ(gPlan.machine->CurrentState(), kBusyState);
        EXPECT_THAT(CellsPainted(), ElementsAre(4, 27, 50, 73));
        EXPECT_TRUE(TimersOf(TopDialog()).empty());
    });
    ThenPress(kLeave);
    Run();
}

TEST_F(BusyPanes, OnlyASuccessShowsTheFullBar) {
    for (const auto& [status, finished] : {std::pair<int, bool>{0, true}, {0x8501, false}}) {
        WorkReturns(static_cast<Status>(status));
        ThenPress(kGo);
        Then([wanted = finished] {
            AwaitEnd();
            System().calls.clear();
            EXPECT_TRUE(Tick());
            // The full bar stops its timer, and so does the pane that is left.
            EXPECT_EQ(std::ranges::count_if(CallsOf("StopTimer"),
                                            [](const auto& call) { return call.window == WindowOf(kBar); }),
                      wanted ? 2 : 1);
        });
        ThenPress(kLeave);
        Run();
    }
}

TEST_F(BusyPanes, ACancelLeadsBackToThePaneBefore) {
    WorkWaitsForCancel();
    ThenPress(kGo);
    ThenPress(kCancel);
    ThenExpectState(kBusyState);
    ThenAwaitTheEnd();
    ThenExpectState(kFormState);
    Then([this] { EXPECT_EQ(Result(), kStatusCallCanceled); });
    Then([] { WorkReturns(0); });
    ThenPress(kGo);
    Then([] {
        EXPECT_TRUE(zeve::platform::IsEnabled(WindowOf(kCancel))) << "it can be canceled again";
        EXPECT_FALSE(gPlan.pane->IsCanceling());
        EXPECT_EQ(Control(kStatusText)->text, u"Waiting");
    });
    ThenAwaitTheEnd();
    ThenExpectState(kSuccessState);
    ThenPress(kDone);
    EXPECT_EQ(Run(), 0);
}

TEST_F(BusyPanes, TheClickSaysThatItCancels) {
    WorkWaits();
    ThenPress(kGo);
    ThenAwaitTheWork();
    std::u16string announced;
    Then([&announced] {
        platform::TheAccessibleRecorder().onAnnounce = [&announced] {
            announced = Control(kStatusText)->text;
        };
    });
    ThenPress(kCancel);
    Then([&announced] {
        EXPECT_EQ(announced, u"Canceling");
        platform::TheAccessibleRecorder().onAnnounce = nullptr;
        EXPECT_TRUE(gProgressCancel);
        EXPECT_FALSE(zeve::platform::IsEnabled(WindowOf(kCancel)));
        EXPECT_EQ(Control(kStatusText)->text, u"Canceling");
        EXPECT_THAT(
            platform::TheAccessibleRecorder().announced,
            Contains(platform::Announcement{WindowOf(kStatusText), platform::AccessibleChange::kName}));
        EXPECT_NE(System().focus, WindowOf(kCancel));
    });
    ThenPress(kCancel); // its id can still be sent
    Then([this] { gate.Open(); });
    ThenAwaitTheEnd();
    ThenExpectState(kSuccessState);
    ThenPress(kDone);
    EXPECT_EQ(Run(), 0) << "it succeeded in spite of the cancel";
}

TEST_F(BusyPanes, ACancelBeforeTheStartCounts) {
    WorkWaitsForCancel();
    Then([] {
        zeve::platform::Post(TopDialog(), zeve::kMessageCommand, kGo, 0);
        // The button exists while the pane is entered; its press is before the posted start.
        Tell(TopDialog(), zeve::kMessageCommand, kGo);
        Tell(TopDialog(), zeve::kMessageCommand, kCancel);
    });
    ThenAwaitTheEnd();
    ThenExpectState(kFormState);
    ThenPress(kLeave);
    Run();
}

TEST_F(BusyPanes, EachTickSignalsAgainWhileItCancels) {
    WorkWaits();
    EventHandle event = MakeClearCancelEvent();
    const auto takesSignal = [&event] {
        return WaitForEither(event.get(), nullptr, 0) == WaitResult::kFirst;
    };
    ThenPress(kGo);
    Then([&takesSignal] {
        while (gFakeWork.calls == 0) std::this_thread::yield();
        Tick();
        EXPECT_FALSE(takesSignal());
    });
    ThenPress(kCancel);
    Then([this, &takesSignal] {
        EXPECT_TRUE(takesSignal());
        for (int tick = 0; tick < 3; ++tick) {
            Tick();
            EXPECT_TRUE(takesSignal()) << tick;
        }
        gate.Open();
        AwaitEnd();
        Tick();
        EXPECT_FALSE(takesSignal()) << "the worker has reported";
        Tell(TopDialog(), zeve::kMessageTimer, kProgressTimer);
        EXPECT_FALSE(takesSignal()) << "and its end was taken";
    });
    ThenPress(kDone);
    Run();
}

TEST_F(BusyPanes, NoCancelWhereTheHostWithheldIt) {
    for (const int allowed : {0, 2, -1}) {
        if (allowed < 0) {
            bag.Remove(PvnWFKey_AllowCancel, kValueTypeLong);
        } else {
            SetLong(bag, PvnWFKey_AllowCancel, static_cast<std::uint32_t>(allowed));
        }
        Then([] { gPlan.machine->SetTransition(kBusyState, kDeniedState, "OKButton"); });
        ThenPress(kGo);
        Then([] {
            EXPECT_FALSE(IsControlShown(kCancel));
            EXPECT_FALSE(IsControlShown(kNote));
            Tell(TopDialog(), zeve::kMessageCommand, kCancel);
            EXPECT_FALSE(gProgressCancel);
            EXPECT_EQ(gPlan.machine->CurrentState(), kBusyState);
        });
        ThenAwaitTheEnd();
        ThenPress(kDone);
        EXPECT_EQ(Run(), 0);
    }
}

TEST_F(BusyPanes, TheCancelButtonLeadsWhereTheTableSays) {
    WorkWaitsForCancel();
    Then([] { gPlan.machine->SetTransition(kBusyState, kSuccessState, "OKButton"); });
    ThenPress(kGo);
    ThenPress(kCancel);
    ThenExpectState(kSuccessState);
    ThenPress(kDone);
    EXPECT_EQ(Run(), 0);
}

TEST_F(BusyPanes, TheEndOfAWorkerMayEndTheRun) {
    WorkReturns(0x8502);
    ThenPress(kGo);
    Then([] {
        gPlan.machine->SetTransition(kBusyState, kWFState_Exit, kEventServerUnavailable);
        AwaitEnd();
        EXPECT_TRUE(Tick());
    });
    Then([] { ADD_FAILURE() << "the dialog is still open"; });
    EXPECT_EQ(RunWorkFlowFromBag<BusyWorkFlow>(bag), 0x8502);
    EXPECT_EQ(System().script.size(), 1u);
    System().script.clear();
}

TEST_F(BusyPanes, TheCancelOfAnotherPaneDoesNothing) {
    ThenPress(kCancel);
    Then([] { EXPECT_FALSE(gProgressCancel); });
    ThenExpectState(kFormState);
    ThenPress(kLeave);
    Run();
}

TEST_F(BusyPanes, TheSynchronousFormIsTakenByThePoll) {
    ThenPress(kHere);
    Then([] {
        EXPECT_EQ(gProgressPercent(), 100);
        EXPECT_TRUE(Tick());
    });
    ThenExpectState(kSuccessState);
    ThenPress(kDone);
    EXPECT_EQ(Run(), 0);
}

TEST_F(BusyPanes, TheTimerIsSetBeforeSynchronousWork) {
    gFakeWork.work = [](auto&, auto&) {
        EXPECT_THAT(TimersOf(TopDialog()), ElementsAre(Pair(kProgressTimer, kProgressPeriod)));
        return kStatusSuccess;
    };
    ThenPress(kHere);
    Then([] { EXPECT_TRUE(Tick()); });
    ThenPress(kDone);
    Run();
    EXPECT_EQ(gFakeWork.calls, 1);
}

bool ExpectNoTimer(std::uint16_t percent, Status status) {
    EXPECT_TRUE(zeve::headless::FindWindow(gPlan.dialog)->timers.empty());
    return ProgressNotifier(percent, status);
}

TEST_F(BusyPanes, TheTimerIsSetAfterTheStartOfAThread) {
    GetFrameTwin().startsUntilRefusal = 1;
    Then([] {
        gPlan.dialog = TopDialog();
        SetPtr(*gPlan.context, PvnWFKey_ProgressNotifierProc, reinterpret_cast<const void*>(&ExpectNoTimer));
    });
    ThenPress(kGo);
    Then([] {
        EXPECT_EQ(gProgressPercent(), 100);
        EXPECT_TRUE(Tick());
    });
    ThenPress(kLeave);
    Run();
}

TEST_F(BusyPanes, ATimerBeforeTheDialogIsMadeChangesNothing) {
    BusyHost host(kView);
    ProgressNotifier(100, 0x8501);
    std::intptr_t result = 7;
    EXPECT_TRUE(host.ProcessWindowMessage({.number = zeve::kMessageTimer}, result));
    EXPECT_EQ(result, 0);
    EXPECT_EQ(gProgressPercent(), 100) << "nobody has taken it";
}

TEST_F(BusyPanes, AStaleEndWithoutAnOperationIsAnEmptyEvent) {
    Then([this] {
        gPlan.machine->SetTransition(kFormState, kDeniedState, "");
        ProgressNotifier(100, 0x8501);
        Tell(TopDialog(), zeve::kMessageTimer);
        EXPECT_EQ(gProgressPercent(), 0);
        EXPECT_EQ(Result(), kStatusUserCancel);
    });
    ThenExpectState(kDeniedState);
    ThenPress(kLeave);
    EXPECT_EQ(Run(), kStatusUserCancel);
}

TEST_F(BusyPanes, ADialogThatIsDestroyedLeavesItsWorkerBehind) {
    WorkWaits();
    ThenPress(kGo);
    Then([] {
        while (gFakeWork.calls == 0) std::this_thread::yield();
        zeve::platform::CloseWindow(TopDialog());
    });
    EXPECT_EQ(Run(), kStatusUserCancel);
    EXPECT_TRUE(IsWorkerRunning());
    gate.Open();
    AwaitWorkers();
    EXPECT_EQ(gProgressPercent(), 0);
    gFakeWork.calls = 0;
    WorkReturns(0);
    ThenPress(kGo);
    ThenAwaitTheEnd();
    ThenPress(kDone);
    EXPECT_EQ(Run(), 0);
}

TEST_F(BusyPanes, ATimerAfterTheEndOfTheRunChangesNothing) {
    ThenPress(kGo);
    ThenAwaitTheEnd();
    Then([] {
        const Window dialog = TopDialog();
        Tell(dialog, zeve::kMessageCommand, kDone);
        ProgressNotifier(100, 0x8501);
        Tell(dialog, zeve::kMessageTimer, kProgressTimer);
        EXPECT_EQ(gProgressPercent(), 100) << "nobody has taken it";
        Tell(dialog, kMessageStartWorker);
        Tell(dialog, zeve::kMessageCommand, kCancel);
        EXPECT_FALSE(gProgressCancel);
    });
    EXPECT_EQ(Run(), 0);
    EXPECT_EQ(Result(), 0u);
}

TEST_F(BusyPanes, ADoneActionMayEndTheRun) {
    ThenPress(kGo);
    Then([] {
        AwaitEnd();
        gPlan.context->whileTaken = [] { Tell(TopDialog(), zeve::kMessageCommand, kLeave); };
        EXPECT_TRUE(Tick());
        EXPECT_EQ(gPlan.machine->CurrentState(), kWFState_Exit);
    });
    EXPECT_EQ(Run(), 0) << "the status of the operation";
}

TEST_F(BusyPanes, WithoutATimerTheRunFails) {
    System().refuseTimer = 2; // the first one is the bar's
    ThenPress(kGo);
    EXPECT_EQ(Run(), kStatusException);
    AwaitWorkers();
    EXPECT_EQ(gProgressPercent(), 0);
}

TEST_F(BusyPanes, WithoutAStartMessageTheRunFails) {
    System().refusedPost = kMessageStartWorker;
    ThenPress(kGo);
    EXPECT_EQ(Run(), kStatusException);
    EXPECT_EQ(gFakeWork.calls, 0);
}

// Also where the host has withheld the button: it is the way on.
TEST_F(BusyPanes, ATourStartsNoWorker) {
    for (const bool mayCancel : {true, false}) {
        SetLong(bag, PvnWFKey_AllowCancel, mayCancel);
        ThenExpectState(kFormState);
        ThenPress(kGo);
        ThenExpectState(kBusyState);
        Then([] {
            for (const auto& call : CallsOf("Post")) {
                EXPECT_NE(call.numbers[0], kMessageStartWorker);
                EXPECT_NE(call.numbers[0], 15);
            }
            Tell(TopDialog(), kMessageStartWorker);
            EXPECT_EQ(gPlan.context->StartedOperation(), nullptr);
        });
        ThenPress(kCancel);
        Then([] { EXPECT_FALSE(gProgressCancel); });
        ThenExpectState(kSuccessState);
        for (int state = kSuccessState; state <= kDeniedState; ++state) ThenPress(kDone);
        Select("en_US");
        FakeContext context(bag);
        EXPECT_TRUE(BusyWorkFlow(context).Run(true));
        EXPECT_TRUE(System().script.empty());
        EXPECT_EQ(gFakeWork.calls, 0);
    }
}

} // namespace
} // namespace brixen::pvn::pvn_workflow
