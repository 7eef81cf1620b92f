#include "workflow/context/progress.h"

#include "frame/brief_lock.h"
#include "frame/platform/posix/frame_twin.h"
#include "workflow/context/worker_notifier.h"

#include <gtest/gtest.h>

#include <atomic>
#include <thread>

namespace brixen::pvn::pvn_workflow {
namespace {

class ProgressReports : public testing::Test {
protected:
    ProgressReports() { EndWorkerRun(); }
    ~ProgressReports() override { EndWorkerRun(); }
};

TEST_F(ProgressReports, TheNotifierStoresPercentAndStatus) {
    EXPECT_TRUE(ProgressNotifier(50, 0));
    EXPECT_EQ(gProgressPercent(), 50);
    EXPECT_EQ(gProgressStatus(), 0);
    EXPECT_TRUE(ProgressNotifier(100, 0xD002));
    EXPECT_EQ(gProgressPercent(), 100);
    EXPECT_EQ(gProgressStatus(), 0xD002);
    ProgressNotifier(0xFFFF, 0xFFFF);
    EXPECT_EQ(gProgressPercent(), 0xFFFF);
    EXPECT_EQ(gProgressStatus(), 0xFFFF);
}

TEST_F(ProgressReports, TheNotifierAnswersFalseAfterTheCancel) {
    gProgressCancel = true;
    EXPECT_FALSE(ProgressNotifier(50, 0));
    EXPECT_EQ(gProgressPercent(), 50) << "it stores all the same";
    gProgressCancel = false;
    EXPECT_TRUE(ProgressNotifier(50, 0));
}

TEST_F(ProgressReports, ANewRunClearsEverything) {
    ProgressNotifier(100, 7);
    gProgressCancel = true;
    BeginWorkerRun();
    EXPECT_EQ(gProgressPercent(), 0);
    EXPECT_EQ(gProgressStatus(), 0);
    EXPECT_FALSE(gProgressCancel);
}

TEST_F(ProgressReports, TheStatusStaysWhenTheEndIsTaken) {
    ProgressNotifier(100, 0x8501);
    ClearProgressPercent();
    EXPECT_EQ(gProgressPercent(), 0);
    EXPECT_EQ(gProgressStatus(), 0x8501);
}

TEST_F(ProgressReports, OnlyTheLatestRunReports) {
    const WorkerRun first = BeginWorkerRun();
    EXPECT_TRUE(NotifyOfRun(first, ProgressNotifier, 10, 1));
    const WorkerRun second = BeginWorkerRun();
    EXPECT_NE(first, second);
    EXPECT_FALSE(NotifyOfRun(first, ProgressNotifier, 100, 2));
    EXPECT_EQ(gProgressPercent(), 0);
    EXPECT_TRUE(NotifyOfRun(second, ProgressNotifier, 20, 3));
    EXPECT_EQ(gProgressPercent(), 20);
    gProgressCancel = true;
    EXPECT_FALSE(NotifyOfRun(second, ProgressNotifier, 20, 3));
    EndWorkerRun();
    EXPECT_FALSE(NotifyOfRun(second, ProgressNotifier, 100, 3));
    EXPECT_EQ(gProgressPercent(), 0);
}

TEST_F(ProgressReports, AWorkersOwnReportIsNeverItsEnd) {
    const WorkerNotifier notifier(BeginWorkerRun(), ProgressNotifier);
    for (const int percent : {0, 1, 99, 100, 101, 65535}) {
        EXPECT_TRUE(notifier.Report(static_cast<std::uint16_t>(percent)));
        EXPECT_EQ(gProgressPercent(), percent < 99 ? percent : 99);
        EXPECT_EQ(gProgressStatus(), 0);
    }
    gProgressCancel = true;
    EXPECT_FALSE(notifier.Report(1));
    BeginWorkerRun();
    EXPECT_FALSE(notifier.Report(50)) << "of an earlier run";
    EXPECT_EQ(gProgressPercent(), 0);
}

TEST_F(ProgressReports, NobodySeesTheEndWithAnEarlierStatus) {
    constexpr int kRounds = 2000;
    std::atomic<WorkerRun> latest = BeginWorkerRun();
    const WorkerRun first = latest;
    std::thread worker([&latest, first] {
        for (WorkerRun run = first + 1; run <= first + kRounds; ++run) {
            while (latest != run) std::this_thread::yield();
            NotifyOfRun(run, ProgressNotifier, 100, 2);
        }
    });
    for (int round = 0; round < kRounds; ++round) {
        latest = BeginWorkerRun();
        while (gProgressPercent() != 100) std::this_thread::yield();
        EXPECT_EQ(gProgressStatus(), 2);
    }
    worker.join();
}

TEST_F(ProgressReports, NoReportOfAnEarlierRunFallsIntoALaterOne) {
    for (int round = 0; round < 200; ++round) {
        const WorkerRun run = BeginWorkerRun();
        std::thread worker([run] { NotifyOfRun(run, ProgressNotifier, 100, 9); });
        BeginWorkerRun();
        EXPECT_EQ(gProgressPercent(), 0);
        worker.join();
        EXPECT_EQ(gProgressPercent(), 0);
    }
}

std::atomic<bool> gIsInside, gMayLeave;

bool StayInside(std::uint16_t, Status) {
    gIsInside = true;
    while (!gMayLeave) std::this_thread::yield();
    return true;
}

// As one that the end of the process has ended there.
TEST_F(ProgressReports, NobodyHangsOnAReportThatNeverReturns) {
    constexpr std::uint32_t kPerLook = 100;
    gIsInside = gMayLeave = false;
    const WorkerRun first = BeginWorkerRun();
    std::thread worker([first] { NotifyOfRun(first, StayInside, 1, 0); });
    while (!gIsInside) std::this_thread::yield();
    GetFrameTwin().tickCount = 0;
    GetFrameTwin().ticksPerLook = kPerLook;
    const WorkerRun second = BeginWorkerRun();
    EXPECT_EQ(*GetFrameTwin().tickCount, kLongestWaitForLock + kPerLook);
    EXPECT_TRUE(NotifyOfRun(second, ProgressNotifier, 100, 7));
    EXPECT_EQ(gProgressStatus(), 7);
    EXPECT_EQ(*GetFrameTwin().tickCount, 2 * (kLongestWaitForLock + kPerLook));
    gMayLeave = true;
    worker.join();
    ResetFrameTwin();
}

} // namespace
} // namespace brixen::pvn::pvn_workflow
