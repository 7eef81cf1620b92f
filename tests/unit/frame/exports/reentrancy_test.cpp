#include "unit/frame/exports/exports_fixture.h"

#include "frame/exports/exported_operations.h"
#include "frame/exports/run_mark.h"
#include "support/another_thread.h"

namespace brixen::pvn {
namespace {

using pavane_test::OnAnotherThread;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

constexpr std::uint32_t kLongWait = 60'000; // milliseconds; only a failing test takes them

void OnThisThread(std::function<void()> call) { call(); }

using Caller = void (*)(std::function<void()>);

// Calls during a run, on the thread of the run and on another one.
class PavaneDuringARun : public Exports, public testing::WithParamInterface<Caller> {
protected:
    // Runs workflow 1 and makes that call in its middle.
    Status RunWith(std::function<void()> call) {
        Pavane_Initialize(5, 0);
        gEngine.run = [&](T_StorageInterface&) -> Status {
            GetParam()(call);
            return kStatusUserOutcome4;
        };
        return Pavane_RunWorkflow(1, nullptr);
    }
};

TEST_P(PavaneDuringARun, ARunIsRefusedAndTouchesNothingElse) {
    const Status status = RunWith([] {
        const auto calls = gEngine.calls;
        GetFrameState().gPreloadedWorkflow = 1;
        EXPECT_EQ(Pavane_RunWorkflow(1, nullptr), PAVANE_BAD_ARGUMENT);
        EXPECT_EQ(Pavane_RunWorkflow(2, nullptr), PAVANE_BAD_ARGUMENT);
        EXPECT_EQ(Pavane_Info_GetErrorCode(), PAVANE_BAD_ARGUMENT);
        EXPECT_EQ(GetFrameState().gPreloadedWorkflow, 1);
        EXPECT_EQ(gEngine.calls, calls);
    });
    EXPECT_EQ(status, PAVANE_USER_OUTCOME4);
    EXPECT_EQ(Pavane_Info_GetErrorCode(), PAVANE_USER_OUTCOME4);
    EXPECT_THAT(Lines(), SizeIs(3)) << "start, clock and end";
}

TEST_P(PavaneDuringARun, APreloadIsRefusedAndTouchesNothingElse) {
    const Status status = RunWith([] {
        const auto calls = gEngine.calls;
        EXPECT_EQ(Pavane_PreloadWorkflow(1), PAVANE_BAD_ARGUMENT) << "even of the number that is running";
        EXPECT_EQ(Pavane_PreloadWorkflow(2), PAVANE_BAD_ARGUMENT);
        EXPECT_EQ(Pavane_Info_GetErrorCode(), PAVANE_BAD_ARGUMENT);
        EXPECT_EQ(GetFrameState().gPreloadedWorkflow, 1);
        EXPECT_EQ(gEngine.calls, calls);
    });
    EXPECT_EQ(status, PAVANE_USER_OUTCOME4);
}

TEST_P(PavaneDuringARun, ATerminateWaitsForTheEnd) {
    const Status status = RunWith([] {
        Pavane_Terminate();
        Pavane_Terminate();
        EXPECT_NE(GetFrameState().gPavaneContext, nullptr);
        EXPECT_NE(GetFrameState().gLogStream, nullptr);
        EXPECT_EQ(Pavane_RunWorkflow(1, nullptr), PAVANE_BAD_ARGUMENT) << "the run goes on";
    });
    EXPECT_EQ(status, PAVANE_USER_OUTCOME4);
    EXPECT_EQ(GetFrameState().gPavaneContext, nullptr);
    EXPECT_EQ(GetFrameState().gLogStream, nullptr);
    EXPECT_EQ(Pavane_Info_GetErrorCode(), PAVANE_USER_OUTCOME4);
    EXPECT_THAT(gEngine.calls, ElementsAre("select en_US", "run", "shut down"));
    EXPECT_EQ(Lines().back(), "PVN: _info_: ----- End First Workflow -----") << "its log is whole";
    EXPECT_EQ(Pavane_Initialize(0, 0), PAVANE_SUCCESS) << "the host lives on";
    EXPECT_EQ(Pavane_RunWorkflow(2, nullptr), PAVANE_USER_OUTCOME4);
}

TEST_P(PavaneDuringARun, TheDeferredTerminateIsPartOfTheRun) {
    gEngine.onShutDown = [&] {
        GetParam()([] {
            EXPECT_EQ(Pavane_RunWorkflow(1, nullptr), PAVANE_BAD_ARGUMENT);
            EXPECT_EQ(Pavane_PreloadWorkflow(1), PAVANE_BAD_ARGUMENT);
            Pavane_Terminate();
        });
    };
    RunWith([] { Pavane_Terminate(); });
    EXPECT_EQ(GetFrameState().gPavaneContext, nullptr);
    EXPECT_THAT(gEngine.calls, ElementsAre("select en_US", "run", "shut down"));
}

TEST_P(PavaneDuringARun, AnInitializeReturnsAsASecondCallDoes) {
    RunWith([] { EXPECT_EQ(Pavane_Initialize(2, 8), PAVANE_SUCCESS); });
    EXPECT_EQ(GetFrameState().gPavaneContext->hostApp, 5);
    EXPECT_THAT(Lines(),
                ElementsAre(testing::_, testing::_,
                            "PVN: __req_: (func: brixen::pvn::Pavane_Initialize, line: 182)", testing::_));
}

TEST_P(PavaneDuringARun, ADeferredTerminateIsCarriedOutOnce) {
    RunWith([] { Pavane_Terminate(); });
    RunWith([] {});
    EXPECT_NE(GetFrameState().gPavaneContext, nullptr);
}

TEST_P(PavaneDuringARun, PreparingCountsAsPartOfTheRun) {
    Pavane_Initialize(0, 0);
    gEngine.onSelect = [&](const std::string&) {
        GetParam()([] { EXPECT_EQ(Pavane_RunWorkflow(2, nullptr), PAVANE_BAD_ARGUMENT); });
    };
    EXPECT_EQ(Pavane_RunWorkflow(1, nullptr), PAVANE_SUCCESS);
    EXPECT_THAT(gEngine.calls, ElementsAre("select en_US", "run"));
}

TEST_F(Exports, AnAbandonedRunLeavesNothingOfItself) {
    Pavane_Initialize(0, 0);
    gEngine.run = [&](T_StorageInterface&) -> Status {
        AbandonRun();
        EXPECT_EQ(gEngine.calls.back(), "abandon run");
        EXPECT_FALSE(IsRunUnderWay());
        EXPECT_EQ(Pavane_Info_GetErrorCode(), PAVANE_EXCEPTION);
        EXPECT_EQ(GetFrameState().gPreloadedWorkflow, 0);
        EXPECT_NE(GetFrameState().gPavaneContext, nullptr);
        return kStatusSuccess;
    };
    Pavane_RunWorkflow(1, nullptr);
    gEngine.run = nullptr;
    EXPECT_EQ(Pavane_RunWorkflow(1, nullptr), PAVANE_SUCCESS);
}

TEST_F(Exports, AnAbandonedRunCarriesOutADeferredTerminate) {
    gEngine.run = [&](T_StorageInterface&) -> Status {
        Pavane_Terminate();
        AbandonRun();
        EXPECT_EQ(GetFrameState().gPavaneContext, nullptr);
        EXPECT_FALSE(IsRunUnderWay());
        return kStatusSuccess;
    };
    Pavane_Initialize(0, 0);
    Pavane_RunWorkflow(1, nullptr);
    EXPECT_THAT(gEngine.calls, ElementsAre("select en_US", "run", "abandon run", "shut down"));
}

// A thread that makes calls to be refused from the mark of each run until the workflow itself runs.
class RefusedCaller {
public:
    RefusedCaller() : thread(StartThread(CallUntilStopped, this)) {}
    ~RefusedCaller() {
        isStopped = true;
        unsigned long code = 0;
        EXPECT_TRUE(WaitForThread(thread, kLongWait, &code));
        CloseThread(thread);
    }
    RefusedCaller(const RefusedCaller&) = delete;
    RefusedCaller& operator=(const RefusedCaller&) = delete;

    void Pause() {
        isPaused = true;
        while (isCalling) YieldThread();
    }
    void Resume() { isPaused = false; }

private:
    static unsigned long CallUntilStopped(void* argument) {
        RefusedCaller& self = *static_cast<RefusedCaller*>(argument);
        while (!self.isStopped) {
            self.isCalling = true;
            if (!self.isPaused && IsRunUnderWay()) {
                EXPECT_EQ(Pavane_PreloadWorkflow(7), PAVANE_BAD_ARGUMENT);
            }
            self.isCalling = false;
            YieldThread();
        }
        return 0;
    }

    std::atomic<bool> isStopped = false;
    std::atomic<bool> isPaused = false;
    std::atomic<bool> isCalling = false;
    NativeThread thread;
};

TEST_F(Exports, ARunReturnsItsOwnStatusWhileAnotherThreadIsRefused) {
    Pavane_Initialize(0, 0);
    RefusedCaller other;
    gEngine.run = [&](T_StorageInterface&) -> Status {
        other.Pause();
        return kStatusUserOutcome4;
    };
    for (int i = 0; i < 3000; ++i) {
        if (i % 2 == 0) {
            EXPECT_EQ(Pavane_PreloadWorkflow(1), PAVANE_SUCCESS);
        }
        other.Resume();
        ASSERT_EQ(Pavane_RunWorkflow(1, nullptr), PAVANE_USER_OUTCOME4) << "run " << i;
        gEngine.calls.clear();
    }
}

INSTANTIATE_TEST_SUITE_P(FromThe, PavaneDuringARun, testing::Values(&OnThisThread, &OnAnotherThread),
                         [](const auto& given) { return given.index == 0 ? "RunsThread" : "AnotherThread"; });

} // namespace
} // namespace brixen::pvn
