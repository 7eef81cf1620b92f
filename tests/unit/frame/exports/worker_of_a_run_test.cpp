// The exported calls while a worker works that its run has left behind.
#include "unit/frame/exports/exports_fixture.h"

#include "frame/exports/exported_operations.h"
#include "net/platform/posix/net_twin.h"
#include "net/transport/call_limit.h"
#include "workflow/worker/worker_start.h"

#include <atomic>

namespace brixen::pvn {
namespace {

using namespace pvn_workflow;
using testing::Each;

std::atomic<bool> gWorks, gMayEnd;

Status LogUntilTheEnd(T_StorageInterface&, const WorkerNotifier&) {
    while (!gMayEnd) {
        PvnLog("of the worker\n");
        gWorks = true;
    }
    return kStatusHttpError;
}

Status WaitForCancel(T_StorageInterface&, const WorkerNotifier&) {
    constexpr std::uint16_t kSeconds = 60; // only a failing test takes them
    gWorks = true;
    const EventHandle never(MakeEvent(nullptr));
    return StatusOfWait(CallLimit(kSeconds).Await(never.get()));
}

class WorkerOfARun : public Exports {
protected:
    WorkerOfARun() {
        ResetNetTwin();
        gWorks = gMayEnd = false;
    }
    ~WorkerOfARun() override { EndWorkerRun(); }

    void Start(WorkerEntryOfBag entry) {
        ASSERT_EQ(Pavane_Initialize(0, 0), PAVANE_SUCCESS);
        StartWorker({entry, std::make_shared<WorkerBag>(), BeginWorkerRun()}, ProgressNotifier);
        while (!gWorks) YieldThread();
    }
    static void AwaitWorker() {
        while (IsWorkerRunning()) YieldThread();
    }
};

TEST_F(WorkerOfARun, WorksOnAfterTerminate) {
    const int handles = GetFrameTwin().openThreadHandles;
    Start(LogUntilTheEnd);
    EXPECT_EQ(GetFrameTwin().openThreadHandles, handles + 1);
    Pavane_Terminate();
    EXPECT_EQ(GetFrameState().gPavaneContext, nullptr);
    EXPECT_EQ(GetFrameState().gLogStream, nullptr);
    EXPECT_EQ(GetFrameTwin().openThreadHandles, handles);
    EXPECT_TRUE(IsWorkerRunning());
    EXPECT_THAT(log.Bodies(), Each("of the worker"));
    ASSERT_EQ(Pavane_Initialize(0, 0), PAVANE_SUCCESS);
    gMayEnd = true;
    while (gProgressPercent() != kPercentFinished) YieldThread();
    EXPECT_EQ(gProgressStatus(), kStatusHttpError);
    EXPECT_FALSE(IsWorkerRunning());
}

TEST_F(WorkerOfARun, IsToldToStopWhenTheRunIsAbandoned) {
    GetFrameState().testLaunchers = nullptr;
    Start(WaitForCancel);
    AbandonRun();
    AwaitWorker();
    EXPECT_EQ(gProgressPercent(), 0) << "and its report is dropped";
}

} // namespace
} // namespace brixen::pvn
