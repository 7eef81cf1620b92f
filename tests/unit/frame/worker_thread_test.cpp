#include "frame/worker_thread.h"

#include "support/log_file.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <atomic>
#include <memory>
#include <stdexcept>

#include <pthread.h>

namespace brixen::pvn {
namespace {

using testing::ElementsAre;

constexpr std::uint32_t kLongWait = 60'000; // milliseconds; only a failing test takes them

// A door that a worker waits at until the test opens it.
struct Door {
    std::atomic<bool> isOpen = false;
    std::atomic<int> passed = 0;

    void Pass() {
        isOpen.wait(false);
        ++passed;
        passed.notify_all();
    }
    void Open() {
        isOpen = true;
        isOpen.notify_all();
    }
    void AwaitPassed(int count) {
        for (int seen = passed; seen < count; seen = passed) passed.wait(seen);
    }
};

struct Report {
    std::int32_t percent = -1;
    Status status = 0;
    pthread_t thread = {};
};
Report gReport;

void KeepReport(std::int32_t percent, Status status) { gReport = {percent, status, pthread_self()}; }

class WorkerThread : public testing::Test {
protected:
    void SetUp() override {
        OpenLog(false);
        gReport = {};
        gPavaneContext = &fContext;
    }
    void TearDown() override {
        if (fContext.threadHandle) CloseThread(fContext.threadHandle);
        gPavaneContext = nullptr;
        EXPECT_EQ(GetFrameTwin().openThreadHandles, 0);
    }

    unsigned long ExitCode() {
        unsigned long code = 0;
        EXPECT_TRUE(WaitForThread(fContext.threadHandle, kLongWait, &code));
        return code;
    }

    pavane_test::LogFile fLog;
    PavaneContext fContext;
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
    EXPECT_THAT(fLog.Bodies(), ElementsAre());
}

TEST_F(WorkerThread, KeepsTheThreeValuesInTheSlot) {
    Status outcome = 0;
    Pavane_Pri_RunPlatformThread(ReportDone, &outcome, KeepReport);
    EXPECT_EQ(fContext.slot.threadEntry, &ReportDone);
    EXPECT_EQ(fContext.slot.threadArg, &outcome);
    EXPECT_EQ(fContext.slot.threadCallback, &KeepReport);
    ExitCode();
}

TEST_F(WorkerThread, ARefusedStartIsLoggedAndLeavesTheSlotFilled) {
    GetFrameTwin().startsUntilRefusal = 1;
    Status outcome = 0;
    EXPECT_EQ(Pavane_Pri_RunPlatformThread(ReportDone, &outcome, KeepReport), kStatusNoThread);
    EXPECT_EQ(fContext.threadHandle, nullptr);
    EXPECT_EQ(fContext.slot.threadEntry, &ReportDone);
    EXPECT_EQ(fContext.slot.threadArg, &outcome);
    EXPECT_EQ(fContext.slot.threadCallback, &KeepReport);
    EXPECT_EQ(gReport.percent, -1) << "nobody but the starter tells of a refused start";
    EXPECT_THAT(fLog.Bodies(), ElementsAre("PVN: __req_: (func: brixen::pvn::Pavane_Pri_RunPlatformThread, "
                                           "line: 1928)"));
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
    EXPECT_EQ(fContext.slot.threadArg, &second);
    EXPECT_EQ(first.passed, 0);
    first.Open();
    first.AwaitPassed(1);
    second.Open();
    ExitCode();
    EXPECT_EQ(second.passed, 1);
}

TEST_F(WorkerThread, ARefusedSecondStartDropsTheFirstHandleToo) {
    Door first;
    Pavane_Pri_RunPlatformThread(PassTheDoor, &first, KeepReport);
    GetFrameTwin().startsUntilRefusal = 1;
    EXPECT_EQ(Pavane_Pri_RunPlatformThread(PassTheDoor, &first, KeepReport), kStatusNoThread);
    EXPECT_EQ(fContext.threadHandle, nullptr);
    first.Open();
    first.AwaitPassed(1);
}

TEST_F(WorkerThread, TheRecordMayGoRightAfterTheStart) {
    Door door;
    auto record = std::make_unique<PavaneContext>();
    gPavaneContext = record.get();
    EXPECT_EQ(Pavane_Pri_RunPlatformThread(PassTheDoor, &door, KeepReport), kStatusSuccess);
    fContext.threadHandle = record->threadHandle;
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
    EXPECT_EQ(fContext.threadHandle, nullptr);
}

TEST_F(WorkerThread, WithoutAContextNothingStarts) {
    gPavaneContext = nullptr;
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

TEST(PavaneContext, ThePhaseIsKeptWhereThereIsARecord) {
    SetWorkflowPhase(kPhaseRunning);
    PavaneContext context;
    gPavaneContext = &context;
    SetWorkflowPhase(kPhaseEnded);
    gPavaneContext = nullptr;
    EXPECT_EQ(context.workflowPhase, 2u);
}

} // namespace
} // namespace brixen::pvn
