#include "workflow/worker/operation_context.h"

#include "net/platform/posix/net_twin.h"
#include "net/transport/call_limit.h"
#include "support/failing_allocator.h"
#include "unit/workflow/worker/fake_operation.h"

#include <gmock/gmock.h>

#include <new>
#include <stdexcept>

namespace brixen::pvn::pvn_workflow {
namespace {

using testing::HasSubstr;
using testing::UnorderedElementsAre;

class OperationActions : public OperationFixture {
protected:
    // Runs the operation to its end and returns the result of the done action.
    std::string RunToItsEnd() {
        EXPECT_EQ(context.Action("PvnWF_FakeAsync"), "InProgress");
        AwaitEnd();
        return context.Action("PvnWF_FakeAsyncDone");
    }
    void SetProxy(T_StorageInterface& to, const std::string& word) {
        SetString(to, PvnWFKey_ProxyHost, word + ".host");
        SetLong(to, PvnWFKey_ProxyPort, static_cast<std::uint32_t>(word.size()));
        SetString(to, PvnWFKey_ProxyUserName, word + " user");
        SetString(to, PvnWFKey_ProxyPassword, word + " password");
    }
    void ExpectProxy(T_StorageInterface& in, const std::string& word) {
        EXPECT_EQ(TextOf(in, PvnWFKey_ProxyHost), word + ".host");
        EXPECT_EQ(LongOf(in, PvnWFKey_ProxyPort), word.size());
        EXPECT_EQ(TextOf(in, PvnWFKey_ProxyUserName), word + " user");
        EXPECT_EQ(TextOf(in, PvnWFKey_ProxyPassword), word + " password");
    }

    T_Storage bag;
    FakeContext context{bag};
};

TEST_F(OperationActions, TheContextHoldsTheNotifier) {
    void* notifier = nullptr;
    ASSERT_TRUE(GetPtr(bag, PvnWFKey_ProgressNotifierProc, notifier));
    EXPECT_EQ(notifier, reinterpret_cast<void*>(&ProgressNotifier));
    EXPECT_EQ(context.workerBag, nullptr);
    EXPECT_EQ(context.StartedOperation(), nullptr);
}

TEST_F(OperationActions, AnUnknownFormIsNoAction) {
    for (const char* const name : {"PvnWF_FakeAsyn", "PvnWF_FakeAsyncDon", "PvnWF_FakeAsyncDone2",
                                   "PvnWF_Fak", "PvnWF_fake", "PvnWF_FakeAtOnceX", "Async", ""}) {
        EXPECT_EQ(context.Action(name), "") << name;
    }
    EXPECT_EQ(gFakeWork.calls, 0);
    EXPECT_EQ(context.StartedOperation(), nullptr);
    EXPECT_EQ(LongOf(bag, PvnWFKey_WorkFlowResult), std::nullopt);
}

TEST_F(OperationActions, TheWorkersBagIsACopyOfWhatItNeeds) {
    SetProxy(bag, "own");
    SetLong(bag, PvnWFKey_UseUserProxySetting, 1);
    SetString(bag, "other", "not for the worker");
    T_Storage& values = BuildWorkerBag(context).values;
    ExpectProxy(values, "own");
    EXPECT_EQ(LongOf(values, PvnWFKey_UseUserProxySetting), 1u);
    EXPECT_EQ(TextOf(values, "other"), std::nullopt);
    SetProxy(values, "changed");
    ExpectProxy(bag, "own");
}

TEST_F(OperationActions, AnAbsentKeyStaysAbsent) {
    T_Storage& values = BuildWorkerBag(context).values;
    for (const char* const key : {PvnWFKey_ProxyHost, PvnWFKey_ProxyUserName, PvnWFKey_ProxyPassword}) {
        EXPECT_EQ(TextOf(values, key), std::nullopt) << key;
    }
    EXPECT_EQ(LongOf(values, PvnWFKey_ProxyPort), std::nullopt);
    EXPECT_EQ(LongOf(values, PvnWFKey_UseUserProxySetting), std::nullopt);
}

TEST_F(OperationActions, ASecondStartMakesANewBag) {
    std::weak_ptr<WorkerBag> first;
    RunToItsEnd();
    first = context.workerBag;
    SetString(context.workerBag->values, "left", "behind");
    RunToItsEnd();
    EXPECT_TRUE(first.expired());
    EXPECT_EQ(TextOf(context.workerBag->values, "left"), std::nullopt);
}

TEST_F(OperationActions, TheWorkerGetsItsBagOnAThreadOfItsOwn) {
    const std::thread::id dialog = std::this_thread::get_id();
    gFakeWork.work = [dialog](T_StorageInterface& values, const WorkerNotifier& notifier) {
        EXPECT_NE(std::this_thread::get_id(), dialog);
        EXPECT_EQ(TextOf(values, "input"), "of the operation");
        EXPECT_TRUE(TextOf(values, PvnWFKey_ServiceUrl).has_value());
        EXPECT_TRUE(notifier.Report(50));
        SetString(values, "output", "of the worker");
        return kStatusSuccess;
    };
    EXPECT_EQ(RunToItsEnd(), "Succeeded");
    EXPECT_EQ(context.taken, 1);
    EXPECT_EQ(context.output, "of the worker");
    EXPECT_EQ(LongOf(bag, PvnWFKey_WorkFlowResult), 0u);
    EXPECT_EQ(context.StartedOperation(), &kFakeOperations[0]);
}

TEST_F(OperationActions, AReportBelowAHundredIsNoEnd) {
    Gate gate;
    std::atomic<bool> hasReported = false;
    gFakeWork.work = [&](auto&, const WorkerNotifier& notifier) {
        notifier.Report(50);
        hasReported = true;
        gate.Pass();
        return kStatusSuccess;
    };
    context.Action("PvnWF_FakeAsync");
    while (!hasReported) std::this_thread::yield();
    EXPECT_EQ(gProgressPercent(), 50);
    gate.Open();
    AwaitEnd();
}

TEST_F(OperationActions, AStartClearsTheResultOfAnEarlierOne) {
    WorkReturns(kStatusHttpError);
    RunToItsEnd();
    SetLong(context, PvnWFKey_CancelFlag, 1);
    Gate gate;
    gFakeWork.work = [&gate](auto&, const WorkerNotifier& notifier) {
        gate.Pass();
        return notifier.Report(1) ? kStatusSuccess : kStatusCallCanceled;
    };
    context.Action("PvnWF_FakeAsync");
    EXPECT_EQ(gProgressPercent(), 0);
    EXPECT_EQ(gProgressStatus(), 0);
    EXPECT_FALSE(gProgressCancel);
    gate.Open();
    AwaitEnd();
    EXPECT_EQ(gProgressStatus(), 0);
}

TEST_F(OperationActions, AnOutcomeThatIsStoredWhileTheResultsAreTakenStays) {
    context.whileTaken = [this] { SetLong(bag, PvnWFKey_WorkFlowResult, 33793); };
    EXPECT_EQ(RunToItsEnd(), "Succeeded");
    EXPECT_EQ(LongOf(bag, PvnWFKey_WorkFlowResult), 33793u);
}

TEST_F(OperationActions, EachResultHasAnEvent) {
    EXPECT_EQ(context.ResultToEvent(0x8501), "TransactionDenied");
    for (unsigned status = 0x8502; status <= 0x85FF; ++status) {
        EXPECT_EQ(context.ResultToEvent(static_cast<Status>(status)), "ServerUnavailable") << status;
    }
    for (const int status : {1, 0x8401, 0x84FF, 0x8500, 0x8600, 0x8601, 0x8206, 0x8209, 0x8282, 0xD001,
                             0xD002, 0xD003, 0xD0A1, 0xD0B3, 0x0101, 0x8902, 0xFFFF}) {
        EXPECT_EQ(context.ResultToEvent(static_cast<Status>(status)), "NoInternetConnection") << status;
    }
    EXPECT_THAT(EventsOfResults(context), UnorderedElementsAre("CancelButton", "NoInternetConnection",
                                                               "ServerUnavailable", "TransactionDenied"));
}

TEST_F(OperationActions, AFailureIsTheOutcomeAndBringsTheProxyBack) {
    gFakeWork.work = [this](T_StorageInterface& values, auto&) {
        SetProxy(values, "learned");
        return Status(0x8501);
    };
    SetProxy(bag, "own");
    EXPECT_EQ(RunToItsEnd(), "TransactionDenied");
    EXPECT_EQ(LongOf(bag, PvnWFKey_WorkFlowResult), 0x8501u);
    ExpectProxy(bag, "learned");
    EXPECT_EQ(LongOf(bag, PvnWFKey_UseUserProxySetting), 1u);
    EXPECT_EQ(context.taken, 0);
    EXPECT_EQ(context.consulted, 1);
}

TEST_F(OperationActions, ASuccessBringsNoProxyBack) {
    gFakeWork.work = [this](T_StorageInterface& values, auto&) {
        SetProxy(values, "learned");
        return kStatusSuccess;
    };
    SetProxy(bag, "own");
    RunToItsEnd();
    ExpectProxy(bag, "own");
    EXPECT_EQ(LongOf(bag, PvnWFKey_UseUserProxySetting), std::nullopt);
    EXPECT_EQ(context.consulted, 0);
}

TEST_F(OperationActions, ACanceledOperationBringsNoProxyBackWhateverItsStatus) {
    SetProxy(bag, "own");
    for (const Status status : {kStatusCallCanceled, kStatusCallTimedOut, Status(0x8501), kStatusException}) {
        gFakeWork.work = [&](T_StorageInterface& values, auto&) {
            SetProxy(values, "learned");
            return status;
        };
        context.Action("PvnWF_FakeAsync");
        AwaitEnd();
        SetLong(context, PvnWFKey_CancelFlag, 1);
        EXPECT_EQ(context.Action("PvnWF_FakeAsyncDone"), "CancelButton") << status;
        ExpectProxy(bag, "own");
        EXPECT_EQ(LongOf(bag, PvnWFKey_UseUserProxySetting), std::nullopt);
        EXPECT_EQ(LongOf(bag, PvnWFKey_WorkFlowResult), status);
    }
    EXPECT_EQ(context.consulted, 0);
}

TEST_F(OperationActions, ASuccessInSpiteOfTheCancelIsASuccess) {
    context.Action("PvnWF_FakeAsync");
    AwaitEnd();
    SetLong(context, PvnWFKey_CancelFlag, 1);
    EXPECT_EQ(context.Action("PvnWF_FakeAsyncDone"), "Succeeded");
    EXPECT_EQ(context.taken, 1);
    EXPECT_EQ(context.consulted, 0);
}

TEST_F(OperationActions, ACancelStopsTheWorker) {
    std::atomic<bool> works = false;
    gFakeWork.work = [&](auto&, const WorkerNotifier& notifier) {
        works = true;
        while (notifier.Report(1)) std::this_thread::yield();
        return kStatusCallCanceled;
    };
    context.Action("PvnWF_FakeAsync");
    while (!works) std::this_thread::yield();
    SetLong(context, PvnWFKey_CancelFlag, 1);
    AwaitEnd();
    EXPECT_EQ(context.Action("PvnWF_FakeAsyncDone"), "CancelButton");
}

TEST_F(OperationActions, ARefusedThreadIsReportedAtOnce) {
    GetFrameTwin().startsUntilRefusal = 1;
    EXPECT_EQ(context.Action("PvnWF_FakeAsync"), "InProgress");
    EXPECT_EQ(gProgressPercent(), 100);
    EXPECT_EQ(gProgressStatus(), 33410);
    EXPECT_EQ(gFakeWork.calls, 0);
    EXPECT_FALSE(IsWorkerRunning());
    EXPECT_EQ(context.Action("PvnWF_FakeAsyncDone"), "NoInternetConnection");
    EXPECT_EQ(RunToItsEnd(), "Succeeded") << "the next start works";
}

TEST_F(OperationActions, EveryRefusalOfAStartIsReported) {
    GetFrameState().gPavaneContext = nullptr;
    context.Action("PvnWF_FakeAsync");
    EXPECT_EQ(gProgressPercent(), 100);
    EXPECT_EQ(gProgressStatus(), kStatusNotInitialized);
    GetFrameState().gPavaneContext = &frame;
}

TEST_F(OperationActions, TheNotifierOfTheBagIsCalled) {
    static std::atomic<int> calls = 0;
    calls = 0;
    const WorkerCallback counting = [](std::uint16_t percent, Status status) {
        ++calls;
        return ProgressNotifier(percent, status);
    };
    SetPtr(bag, PvnWFKey_ProgressNotifierProc, reinterpret_cast<const void*>(counting));
    RunToItsEnd();
    EXPECT_EQ(calls, 2) << "the first question and the end";
    context.Action("PvnWF_Fake");
    context.Action("PvnWF_FakeAtOnce");
    EXPECT_EQ(calls, 6) << "so does work on this thread";
    bag.Remove(PvnWFKey_ProgressNotifierProc, kValueTypePtr);
    EXPECT_EQ(RunToItsEnd(), "Succeeded") << "without one it is the engine's own";
    EXPECT_EQ(calls, 6);
}

std::weak_ptr<WorkerBag> gBagAtEnd;

bool ExpectNoWorkAtTheEnd(std::uint16_t percent, Status status) {
    if (percent == kPercentFinished) {
        EXPECT_FALSE(IsWorkerRunning());
        EXPECT_EQ(gBagAtEnd.use_count(), 1) << "the context's share alone";
    }
    return ProgressNotifier(percent, status);
}

TEST_F(OperationActions, AWorkerHasGivenItsBagBackWhenItReportsItsEnd) {
    SetPtr(bag, PvnWFKey_ProgressNotifierProc, reinterpret_cast<const void*>(&ExpectNoWorkAtTheEnd));
    std::atomic<bool> isKnown = false;
    gFakeWork.work = [&isKnown](auto&, auto&) {
        while (!isKnown) std::this_thread::yield();
        return kStatusSuccess;
    };
    context.Action("PvnWF_FakeAsync");
    gBagAtEnd = context.workerBag;
    isKnown = true;
    AwaitEnd();
    AwaitWorkers();
}

TEST_F(OperationActions, ThrowingWorkIsAStatus) {
    gFakeWork.work = [](auto&, auto&) -> Status { throw std::runtime_error("work"); };
    EXPECT_EQ(RunToItsEnd(), "NoInternetConnection");
    EXPECT_EQ(LongOf(bag, PvnWFKey_WorkFlowResult), 33289u);
    gFakeWork.work = [](auto&, auto&) -> Status { throw std::bad_alloc(); };
    RunToItsEnd();
    EXPECT_EQ(LongOf(bag, PvnWFKey_WorkFlowResult), 33286u);
    gFakeWork.work = [](auto&, auto&) -> Status { throw 1; };
    RunToItsEnd();
    EXPECT_EQ(LongOf(bag, PvnWFKey_WorkFlowResult), 33289u);
}

TEST_F(OperationActions, ThrowingWorkIsAStatusOfTheSynchronousFormsToo) {
    gFakeWork.work = [](auto&, auto&) -> Status { throw std::runtime_error("work"); };
    EXPECT_EQ(context.Action("PvnWF_Fake"), "InProgress");
    EXPECT_EQ(gProgressPercent(), 100);
    EXPECT_EQ(gProgressStatus(), 33289);
    gFakeWork.work = [](auto&, auto&) -> Status { throw std::bad_alloc(); };
    EXPECT_EQ(context.Action("PvnWF_FakeAtOnce"), "NoInternetConnection");
    EXPECT_EQ(LongOf(bag, PvnWFKey_WorkFlowResult), 33286u);
    EXPECT_FALSE(IsWorkerRunning());
    EXPECT_EQ(RunToItsEnd(), "NoInternetConnection") << "the next start is no refused one";
    EXPECT_EQ(LongOf(bag, PvnWFKey_WorkFlowResult), 33286u);
}

TEST_F(OperationActions, TheSynchronousFormWorksOnThisThread) {
    const std::thread::id dialog = std::this_thread::get_id();
    gFakeWork.work = [dialog](T_StorageInterface& values, auto&) {
        EXPECT_EQ(std::this_thread::get_id(), dialog);
        SetString(values, "output", "of the work");
        return kStatusSuccess;
    };
    EXPECT_EQ(context.Action("PvnWF_Fake"), "InProgress");
    EXPECT_EQ(gProgressPercent(), 100) << "the poll will take it";
    EXPECT_EQ(LongOf(bag, PvnWFKey_WorkFlowResult), std::nullopt);
    EXPECT_EQ(context.Action("PvnWF_FakeAsyncDone"), "Succeeded");
    EXPECT_EQ(context.output, "of the work");
}

TEST_F(OperationActions, TheVariantEvaluatesAtOnce) {
    EXPECT_EQ(context.Action("PvnWF_FakeAtOnce"), "SucceededAtOnce");
    EXPECT_EQ(gProgressPercent(), 0) << "nothing is left for a poll";
    EXPECT_EQ(context.ProgressTimer().TimerId(), 0u) << "and nothing polls";
    EXPECT_EQ(LongOf(bag, PvnWFKey_WorkFlowResult), 0u);
    EXPECT_EQ(context.taken, 1);
    WorkReturns(0x8502);
    EXPECT_EQ(context.Action("PvnWF_FakeAtOnce"), "ServerUnavailable");
    EXPECT_EQ(LongOf(bag, PvnWFKey_WorkFlowResult), 0x8502u);
}

TEST_F(OperationActions, ADoneActionWithoutAStartTakesNothing) {
    EXPECT_EQ(context.Action("PvnWF_FakeAsyncDone"), "Succeeded");
    EXPECT_EQ(context.taken, 0);
    ProgressNotifier(100, 0x8501);
    EXPECT_EQ(context.Action("PvnWF_FakeAsyncDone"), "TransactionDenied");
}

TEST_F(OperationActions, ThePasswordLeavesTheBagOfTheWorkerAfterItsEnd) {
    SetProxy(bag, "own");
    for (const Status status : {kStatusSuccess, kStatusHttpError}) {
        WorkReturns(status);
        RunToItsEnd();
        EXPECT_EQ(TextOf(context.workerBag->values, PvnWFKey_ProxyPassword), std::nullopt);
        EXPECT_EQ(TextOf(context.workerBag->values, PvnWFKey_ProxyHost), "own.host");
    }
    context.Action("PvnWF_FakeAsync");
    AwaitEnd();
    SetLong(context, PvnWFKey_CancelFlag, 1);
    EXPECT_EQ(context.Action("PvnWF_FakeAsyncDone"), "CancelButton");
    EXPECT_EQ(TextOf(context.workerBag->values, PvnWFKey_ProxyPassword), std::nullopt);
    ExpectProxy(bag, "own");
}

// Needs the counting allocator.
TEST(DeletedBytes, OfTheBagOfAWorkerHoldNoPassword) {
    const std::string secret = "a password that is too long for a short text";
    auto bag = std::make_unique<WorkerBag>();
    SetString(bag->values, PvnWFKey_ProxyPassword, secret.c_str());
    const char* password = nullptr;
    ASSERT_TRUE(bag->values.Get(PvnWFKey_ProxyPassword, kValueTypeString, &password));
    const pavane_test::KeepDeletedBytes deleted(password, secret.size());
    bag.reset();
    EXPECT_EQ(deleted.Bytes(), std::string(secret.size(), '\0'));
}

// Needs the allocator that fails.
class WorkerStartWithoutMemory : public OperationFixture {};

TEST_F(WorkerStartWithoutMemory, IsReported) {
    for (const auto start : {StartWorker, RunWorkerHere}) {
        WorkerTask task{FakeEntry, std::make_shared<WorkerBag>(), BeginWorkerRun()};
        {
            const pavane_test::FailNthAllocation failure(1);
            start(std::move(task), ProgressNotifier);
            EXPECT_TRUE(failure.HasFailed());
        }
        EXPECT_EQ(gProgressPercent(), 100);
        EXPECT_EQ(gProgressStatus(), 33286);
        EXPECT_EQ(gFakeWork.calls, 0);
        EXPECT_FALSE(IsWorkerRunning());
    }
}

TEST_F(WorkerStartWithoutMemory, IsReportedIfTheBagCannotBeMade) {
    T_Storage bag;
    FakeContext context(bag);
    SetString(bag, PvnWFKey_ProxyHost, "a host that is too long for a short text");
    for (const char* const action : {"PvnWF_FakeAsync", "PvnWF_Fake"}) {
        for (std::size_t n = 1; n <= 3; ++n) {
            {
                const pavane_test::FailNthAllocation failure(n);
                EXPECT_EQ(context.Action(action), "InProgress");
                EXPECT_TRUE(failure.HasFailed());
            }
            EXPECT_EQ(gProgressPercent(), 100);
            EXPECT_EQ(gProgressStatus(), 33286);
            EXPECT_EQ(gFakeWork.calls, 0);
            EXPECT_EQ(context.Action("PvnWF_FakeAsyncDone"), "NoInternetConnection");
        }
    }
}

TEST_F(WorkerStartWithoutMemory, BringsNoSettingsOfAnEarlierStartBack) {
    T_Storage bag;
    FakeContext context(bag);
    SetString(bag, PvnWFKey_ProxyHost, "of.the.earlier.start");
    WorkReturns(kStatusHttpError);
    context.Action("PvnWF_FakeAsync");
    AwaitEnd();
    context.Action("PvnWF_FakeAsyncDone");
    bag.Remove(PvnWFKey_ProxyHost, kValueTypeString);
    {
        const pavane_test::FailNthAllocation failure(1);
        context.Action("PvnWF_FakeAsync");
        EXPECT_TRUE(failure.HasFailed());
    }
    EXPECT_EQ(context.Action("PvnWF_FakeAsyncDone"), "NoInternetConnection");
    EXPECT_EQ(TextOf(bag, PvnWFKey_ProxyHost), std::nullopt);
}

// A worker that waits for `gate`, and what it found in its bag after that.
struct Outliving {
    Gate gate;
    std::atomic<bool> works = false;
    std::optional<std::string> found;
    std::optional<bool> goesOn;
};

class OutlivingWorker : public OperationActions {
protected:
    void Start(OperationContext& run) {
        gFakeWork.work = [this](T_StorageInterface& values, const WorkerNotifier& notifier) {
            outliving.works = true;
            outliving.gate.Pass();
            outliving.found = TextOf(values, "input");
            outliving.goesOn = notifier.Report(50);
            return kStatusHttpError;
        };
        run.Action("PvnWF_FakeAsync");
        while (!outliving.works) std::this_thread::yield();
    }

    Outliving outliving;
};

TEST_F(OutlivingWorker, HasItsBagAfterTheRunAndReportsNothing) {
    {
        T_Storage otherBag;
        FakeContext other(otherBag);
        Start(other);
    }
    outliving.gate.Open();
    AwaitWorkers();
    EXPECT_EQ(outliving.found, "of the operation");
    EXPECT_EQ(outliving.goesOn, false);
    EXPECT_EQ(gProgressPercent(), 0);
    EXPECT_EQ(gProgressStatus(), 0);
}

TEST_F(OutlivingWorker, IsAwaitedBeforeTheNextStart) {
    {
        T_Storage otherBag;
        FakeContext other(otherBag);
        gFakeWork.work = [this](auto&, const WorkerNotifier& notifier) {
            outliving.works = true;
            while (notifier.Report(50)) std::this_thread::yield();
            return kStatusCallCanceled;
        };
        other.Action("PvnWF_FakeAsync");
        while (!outliving.works) std::this_thread::yield();
    }
    WorkReturns(kStatusSuccess);
    EXPECT_EQ(RunToItsEnd(), "Succeeded");
}

// The clock goes on by `perLook` milliseconds with each look at it.
class WorkerThatDoesNotEnd : public OutlivingWorker {
protected:
    WorkerThatDoesNotEnd() {
        T_Storage otherBag;
        FakeContext other(otherBag);
        Start(other);
    }
    void StartAnotherOne(std::uint32_t perLook) {
        GetFrameTwin().tickCount = kStart;
        GetFrameTwin().ticksPerLook = perLook;
        context.Action("PvnWF_FakeAsync");
    }
    std::uint32_t Passed() const { return *GetFrameTwin().tickCount - kStart; }
    void End() {
        outliving.gate.Open();
        AwaitWorkers();
    }

    static constexpr std::uint32_t kStart = 0xFFFFFF00; // the count wraps meanwhile
};

TEST_F(WorkerThatDoesNotEnd, RefusesTheNextStartAfterTwoSeconds) {
    StartAnotherOne(500);
    EXPECT_EQ(Passed(), 5 * 500u) << "the start, and each half of a second";
    EXPECT_EQ(gProgressPercent(), 100);
    EXPECT_EQ(gProgressStatus(), 33410);
    EXPECT_EQ(gFakeWork.calls, 1);
    EXPECT_THAT(Logged(), HasSubstr("PVN: __req_: (func: brixen::pvn::Pavane_Pri_RunPlatformThread, "
                                    "line: 1928)"));
    End();
    EXPECT_EQ(gProgressStatus(), 33410) << "the earlier worker is dropped";
}

TEST_F(WorkerThatDoesNotEnd, IsGivenTheWholeTime) {
    StartAnotherOne(1999);
    EXPECT_EQ(Passed(), 3 * 1999u);
    StartAnotherOne(2000);
    EXPECT_EQ(Passed(), 2 * 2000u);
    End();
}

TEST_F(WorkerThatDoesNotEnd, RefusesASynchronousOneToo) {
    GetFrameTwin().tickCount = kStart;
    GetFrameTwin().ticksPerLook = kLongestWaitForWorker;
    EXPECT_EQ(context.Action("PvnWF_FakeAtOnce"), "NoInternetConnection");
    EXPECT_EQ(LongOf(bag, PvnWFKey_WorkFlowResult), 33410u);
    EXPECT_EQ(gFakeWork.calls, 1);
    End();
}

// The names of events are the process's, so a handle of the event shows its signals.
class CancelSignals : public OutlivingWorker {
protected:
    CancelSignals() {
        ResetNetTwin();
        event = MakeClearCancelEvent();
    }
    bool TakeSignal() const { return WaitForEither(event.get(), nullptr, 0) == WaitResult::kFirst; }

    EventHandle event;
};

TEST_F(CancelSignals, TheFlagSignalsTheCall) {
    SetLong(context, PvnWFKey_CancelFlag, 0);
    EXPECT_FALSE(TakeSignal());
    SetLong(context, PvnWFKey_CancelFlag, 1);
    EXPECT_TRUE(TakeSignal());
    SetLong(context, PvnWFKey_CancelFlag, 2);
    EXPECT_FALSE(TakeSignal());
}

// A worker that the signal wakes asks the flag at once.
TEST_F(CancelSignals, TheFlagIsSetBeforeTheSignal) {
    int signals = 0;
    GetNetTwin().onSignal = [&signals] {
        ++signals;
        EXPECT_TRUE(gProgressCancel);
    };
    gProgressCancel = false;
    SetLong(context, PvnWFKey_CancelFlag, 1);
    EXPECT_EQ(signals, 1);
    ResetNetTwin();
}

TEST_F(CancelSignals, TheEndOfARunSignalsItsWorker) {
    {
        T_Storage otherBag;
        FakeContext other(otherBag);
        Start(other);
        EXPECT_FALSE(TakeSignal());
    }
    EXPECT_TRUE(TakeSignal());
    outliving.gate.Open();
    AwaitWorkers();
}

TEST_F(CancelSignals, TheEndOfARunSignalsAnEarlierWorkerForWhichAStartWasRefused) {
    {
        T_Storage otherBag;
        FakeContext other(otherBag);
        Start(other);
        GetFrameTwin().tickCount = 0;
        GetFrameTwin().ticksPerLook = kLongestWaitForWorker;
        EXPECT_EQ(other.Action("PvnWF_FakeAsync"), "InProgress");
        EXPECT_EQ(gProgressStatus(), 33410);
        EXPECT_FALSE(TakeSignal()) << "the wait was over before its first signal";
    }
    EXPECT_TRUE(TakeSignal());
    outliving.gate.Open();
    AwaitWorkers();
}

TEST_F(CancelSignals, TheEndOfARunThatStartedNothingSignalsNothing) {
    {
        T_Storage otherBag;
        FakeContext other(otherBag);
        Start(other);
    }
    EXPECT_TRUE(TakeSignal());
    {
        T_Storage idleBag;
        const FakeContext idle(idleBag);
    }
    EXPECT_FALSE(TakeSignal()) << "the earlier worker still works";
    outliving.gate.Open();
    AwaitWorkers();
}

TEST_F(CancelSignals, AnAbandonedRunSignalsItsWorkerAndDropsItsReports) {
    Start(context);
    AbandonWorker();
    EXPECT_TRUE(TakeSignal());
    outliving.gate.Open();
    AwaitWorkers();
    EXPECT_EQ(outliving.goesOn, false);
    EXPECT_EQ(gProgressPercent(), 0);
    AbandonWorker();
    EXPECT_FALSE(TakeSignal()) << "nobody works";
}

TEST_F(CancelSignals, TheNextStartSignalsAgain) {
    event.reset();
    std::atomic<int> waits = 0;
    {
        T_Storage otherBag;
        FakeContext other(otherBag);
        gFakeWork.work = [&waits](auto&, auto&) {
            const EventHandle cancel = MakeCancelEvent();
            for (; waits < 3; ++waits) {
                EXPECT_EQ(WaitForEither(cancel.get(), nullptr, 60'000), WaitResult::kFirst);
            }
            return kStatusCallCanceled;
        };
        other.Action("PvnWF_FakeAsync");
        while (gFakeWork.calls == 0) std::this_thread::yield();
    }
    WorkReturns(kStatusSuccess);
    EXPECT_EQ(RunToItsEnd(), "Succeeded");
    EXPECT_EQ(waits, 3);
}

// A signal can end the call of another process.
TEST_F(CancelSignals, AStartThatWaitsSendsFewSignals) {
    event.reset();
    std::atomic<int> signals = 0;
    std::atomic<bool> mayEnd = false;
    gFakeWork.work = [&](auto&, auto&) {
        const EventHandle cancel = MakeCancelEvent();
        while (!mayEnd)
            if (WaitForEither(cancel.get(), nullptr, 1) == WaitResult::kFirst) ++signals;
        return kStatusCallCanceled;
    };
    context.Action("PvnWF_FakeAsync");
    while (gFakeWork.calls == 0) std::this_thread::yield();
    GetFrameTwin().tickCount = 0;
    GetFrameTwin().ticksPerLook = 50;
    EXPECT_EQ(context.Action("PvnWF_FakeAsync"), "InProgress");
    EXPECT_EQ(gProgressStatus(), 33410);
    mayEnd = true;
    AwaitWorkers();
    EXPECT_GE(signals, 2);
    EXPECT_LE(signals, 8) << "four in a second";
}

TEST_F(CancelSignals, TheEndOfARunWithoutAWorkerSignalsNothing) {
    {
        T_Storage otherBag;
        FakeContext other(otherBag);
        other.Action("PvnWF_FakeAsync");
        AwaitEnd();
    }
    EXPECT_FALSE(TakeSignal());
}

TEST_F(CancelSignals, AWorkerClearsAnEarlierSignal) {
    SignalEvent(event.get());
    gFakeWork.work = [this](auto&, auto&) { return TakeSignal() ? kStatusCallCanceled : kStatusSuccess; };
    EXPECT_EQ(RunToItsEnd(), "Succeeded");
}

TEST_F(CancelSignals, AWorkerHoldsTheEventUntilItsWorkHasEnded) {
    event.reset();
    EXPECT_EQ(OpenNetHandles(), 0);
    gFakeWork.work = [](auto&, auto&) { return OpenNetHandles() == 1 ? kStatusSuccess : kStatusException; };
    EXPECT_EQ(RunToItsEnd(), "Succeeded");
    AwaitWorkers();
    EXPECT_EQ(OpenNetHandles(), 0);
}

TEST_F(CancelSignals, WithoutAnEventACancelEndsNoCall) {
    event.reset();
    GetNetTwin().refusedCall = "MakeNamedEvent";
    const EventHandle done(MakeEvent(nullptr));
    std::atomic<bool> waits = false;
    std::atomic<WaitResult> result = WaitResult::kFailed;
    gFakeWork.work = [&](auto&, auto&) {
        const CallLimit limit(60);
        waits = true;
        result = limit.Await(done.get());
        return kStatusSuccess;
    };
    context.Action("PvnWF_FakeAsync");
    while (!waits) std::this_thread::yield();
    SetLong(context, PvnWFKey_CancelFlag, 1);
    EXPECT_NE(gProgressPercent(), 100);
    SignalEvent(done.get());
    AwaitEnd();
    EXPECT_EQ(result, WaitResult::kFirst);
    EXPECT_EQ(context.Action("PvnWF_FakeAsyncDone"), "Succeeded");
}

TEST_F(CancelSignals, ACancelRightAfterTheAnswerOfTheFirstQuestionEndsTheCall) {
    const WorkerCallback canceling = [](std::uint16_t percent, Status status) {
        const bool goesOn = ProgressNotifier(percent, status);
        if (percent == 0) CancelTransaction();
        return goesOn;
    };
    SetPtr(bag, PvnWFKey_ProgressNotifierProc, reinterpret_cast<const void*>(canceling));
    gFakeWork.work = [this](auto&, auto&) { return TakeSignal() ? kStatusCallCanceled : kStatusSuccess; };
    RunToItsEnd();
    EXPECT_EQ(LongOf(bag, PvnWFKey_WorkFlowResult), kStatusCallCanceled);
}

TEST_F(CancelSignals, ACancelBeforeTheFirstQuestionIsItsAnswer) {
    const WorkerCallback refusing = [](std::uint16_t percent, Status status) {
        if (percent == 0) gProgressCancel = true;
        return ProgressNotifier(percent, status);
    };
    SetPtr(bag, PvnWFKey_ProgressNotifierProc, reinterpret_cast<const void*>(refusing));
    EXPECT_EQ(RunToItsEnd(), "CancelButton");
    EXPECT_EQ(gFakeWork.calls, 0);
    EXPECT_EQ(LongOf(bag, PvnWFKey_WorkFlowResult), kStatusCallCanceled);
}

} // namespace
} // namespace brixen::pvn::pvn_workflow
