#include "frame/worker_thread.h"

#include "frame/frame_state.h"

#include "support/log_file.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <atomic>
#include <memory>
#include <stdexcept>
#include <thread>

#include <pthread.h>

namespace brixen::pvn {
namespace {

using testing::ElementsAre;

constexpr std::uint32_t kLongWait = 60'000; // milliseconds; only a failing test takes them

// A door that a worker waits at until the test opens it. Waits by yielding: a wait on an atomic by MinGW's
// library sometimes misses its notice.
struct Door {
    std::atomic<bool> isOpen = false;
    std::atomic<int> passed = 0;

    void Pass() {
        while (!isOpen) std::this_thread::yield();
        ++passed;
    }
    void Open() { isOpen = true; }
    void AwaitPassed(int count) {
        while (passed < count) std::this_thread::yield();
    }
};

struct Report {
    std::uint16_t percent = 0xFFFF;
    Status status = 0;
    pthread_t thread = {};
};
Report gReport;

bool gGoesOn = true;

bool KeepReport(std::uint16_t percent, Status status) {
    gReport = {percent, status, pthread_self()};
    return gGoesOn;
}

class WorkerThread : public testing::Test {
protected:
    void SetUp() override {
        OpenLog(false);
        gReport = {};
        gGoesOn = true;
        GetFrameState().gPavaneContext = &context;
    }
    void TearDown() override {
        if (context.threadHandle) CloseThread(context.threadHandle);
        GetFrameState().gPavaneContext = nullptr;
        EXPECT_EQ(GetFrameTwin().openThreadHandles, 0);
    }

    unsigned long ExitCode() {
        unsigned long code = 0;
        EXPECT_TRUE(WaitForThread(context.threadHandle, kLongWait, &code));
        return code;
    }

    pavane_test::LogFile log;
    PavaneContext context;
};

Status ReportDone(void* arg, WorkerCallback callback) {
    callback(100, *static_cast<Status*>(arg));
    return *static_cast<Status*>(arg);
}

TEST_F(WorkerThread, RunsTheEntryOnAThreadOfItsOwn) {
    Status outcome = 0x8401;
    EXPECT_EQ(Pavane_Pri_RunPlatformThread(ReportDone, &outcome, KeepReport), kStatusSuccess);
    EXPECT_EQ(ExitCode(), 0x8401u);
    EXPECT_EQ(gReport.percent, 100);
    EXPECT_EQ(gReport.status, 0x8401);
    EXPECT_FALSE(pthread_equal(gReport.thread, pthread_self()));
    EXPECT_THAT(log.Bodies(), ElementsAre());
}

TEST_F(WorkerThread, KeepsTheThreeValuesInTheSlot) {
    Status outcome = 0;
    EXPECT_EQ(Pavane_Pri_RunPlatformThread(ReportDone, &outcome, KeepReport), kStatusSuccess);
    EXPECT_EQ(context.slot.threadEntry, &ReportDone);
    EXPECT_EQ(context.slot.threadArg, &outcome);
    EXPECT_EQ(context.slot.threadCallback, &KeepReport);
    ExitCode();
}

TEST_F(WorkerThread, ARefusedStartIsLoggedAndLeavesTheSlotFilled) {
    GetFrameTwin().startsUntilRefusal = 1;
    Status outcome = 0;
    EXPECT_EQ(Pavane_Pri_RunPlatformThread(ReportDone, &outcome, KeepReport), kStatusNoThread);
    EXPECT_EQ(context.threadHandle, nullptr);
    EXPECT_EQ(context.slot.threadEntry, &ReportDone);
    EXPECT_EQ(context.slot.threadArg, &outcome);
    EXPECT_EQ(context.slot.threadCallback, &KeepReport);
    EXPECT_EQ(gReport.percent, 0xFFFF) << "only the caller reports a refused start";
    EXPECT_THAT(log.Bodies(), ElementsAre("PVN: __req_: (func: brixen::pvn::Pavane_Pri_RunPlatformThread, "
                                          "line: 1928)"));
}

Status ReportWhetherToGoOn(void*, WorkerCallback callback) { return callback(50, 0) ? 1 : 2; }

TEST_F(WorkerThread, TheAnswerOfTheCallbackReachesTheWorker) {
    EXPECT_EQ(Pavane_Pri_RunPlatformThread(ReportWhetherToGoOn, nullptr, KeepReport), kStatusSuccess);
    EXPECT_EQ(ExitCode(), 1u);
    gGoesOn = false;
    EXPECT_EQ(Pavane_Pri_RunPlatformThread(ReportWhetherToGoOn, nullptr, KeepReport), kStatusSuccess);
    EXPECT_EQ(ExitCode(), 2u);
}

Status PassTheDoor(void* arg, WorkerCallback) {
    static_cast<Door*>(arg)->Pass();
    return kStatusSuccess;
}

TEST_F(WorkerThread, ASecondStartDropsTheFirstHandleAndLeavesTheFirstThreadRunning) {
    Door first;
    Door second;
    EXPECT_EQ(Pavane_Pri_RunPlatformThread(PassTheDoor, &first, KeepReport), kStatusSuccess);
    EXPECT_EQ(Pavane_Pri_RunPlatformThread(PassTheDoor, &second, KeepReport), kStatusSuccess);
    EXPECT_EQ(GetFrameTwin().openThreadHandles, 1);
    EXPECT_EQ(context.slot.threadArg, &second);
    EXPECT_EQ(first.passed, 0);
    first.Open();
    first.AwaitPassed(1);
    second.Open();
    ExitCode();
    EXPECT_EQ(second.passed, 1);
}

TEST_F(WorkerThread, ARefusedSecondStartDropsTheFirstHandleToo) {
    Door first;
    EXPECT_EQ(Pavane_Pri_RunPlatformThread(PassTheDoor, &first, KeepReport), kStatusSuccess);
    GetFrameTwin().startsUntilRefusal = 1;
    EXPECT_EQ(Pavane_Pri_RunPlatformThread(PassTheDoor, &first, KeepReport), kStatusNoThread);
    EXPECT_EQ(context.threadHandle, nullptr);
    first.Open();
    first.AwaitPassed(1);
}

TEST_F(WorkerThread, TheContextMayBeFreedRightAfterTheStart) {
    Door door;
    auto record = std::make_unique<PavaneContext>();
    GetFrameState().gPavaneContext = record.get();
    EXPECT_EQ(Pavane_Pri_RunPlatformThread(PassTheDoor, &door, KeepReport), kStatusSuccess);
    context.threadHandle = record->threadHandle;
    record.reset();
    door.Open();
    EXPECT_EQ(ExitCode(), kStatusSuccess);
    EXPECT_EQ(door.passed, 1);
}

Status Throw(void*, WorkerCallback) { throw std::runtime_error("out of the entry"); }

TEST_F(WorkerThread, AnExceptionBecomesTheExitCode) {
    EXPECT_EQ(Pavane_Pri_RunPlatformThread(Throw, nullptr, KeepReport), kStatusSuccess);
    EXPECT_EQ(ExitCode(), kStatusException);
}

TEST_F(WorkerThread, ANullEntryIsRefused) {
    EXPECT_EQ(Pavane_Pri_RunPlatformThread(nullptr, nullptr, KeepReport), kStatusNullArgument);
    EXPECT_EQ(context.threadHandle, nullptr);
}

TEST_F(WorkerThread, WithoutAContextNothingStarts) {
    GetFrameState().gPavaneContext = nullptr;
    EXPECT_EQ(Pavane_Pri_RunPlatformThread(Throw, nullptr, KeepReport), kStatusNotInitialized);
}

TEST(PavaneContext, StartsZeroed) {
    const PavaneContext context;
    EXPECT_EQ(context.hostOptions, 0u);
    EXPECT_EQ(context.hostApp, 0);
    EXPECT_EQ(context.auxObject, nullptr);
    EXPECT_EQ(context.slot.threadEntry, nullptr);
    EXPECT_EQ(context.slot.threadArg, nullptr);
    EXPECT_EQ(context.slot.threadCallback, nullptr);
    EXPECT_EQ(context.threadHandle, nullptr);
    EXPECT_STREQ(context.hostLocale, "");
    EXPECT_STREQ(context.hostDisplayName, "");
    EXPECT_EQ(context.localeIsFallback, 0u);
    EXPECT_EQ(context.workflowPhase, 0u);
}

TEST(PavaneContext, ThePhasesAreTheDocumentedNumbers) {
    PavaneContext context;
    GetFrameState().gPavaneContext = &context;
    for (const auto& [phase, number] : {std::pair{kPhaseRunning, 1u}, {kPhaseEnded, 2u}, {kPhaseIdle, 0u}}) {
        SetWorkflowPhase(phase);
        EXPECT_EQ(context.workflowPhase, number);
    }
    GetFrameState().gPavaneContext = nullptr;
}

TEST(PavaneContext, ThePhaseNeedsNoContext) { SetWorkflowPhase(kPhaseRunning); }

} // namespace
} // namespace brixen::pvn
