// A host that catches a structured exception above Pavane_RunWorkflow: no destructor of the run is called.
#include "frame/exports/launcher_table.h"
#include "frame/exports/run_mark.h"
#include "frame/frame_state.h"
#include "net/transport/call_limit.h"
#include "pavane.h"
#include "windows/frame/host_catch.h"
#include "workflow/worker/worker_start.h"

#include <gtest/gtest.h>

namespace brixen::pvn {
namespace {

constexpr DWORD kForeignException = 0xE06D7363, kOtherCode = 0xE0001234;

DWORD gRaisedCode = 0;    // by the workflow; 0 for none
bool gTerminates = false; // the workflow calls Pavane_Terminate first
int gAbandoned = 0;       // calls to undo the run

Status RunOrRaise(T_StorageInterface&) {
    if (gTerminates) Pavane_Terminate();
    if (gRaisedCode != 0) host_catch::Raise(gRaisedCode);
    return kStatusSuccess;
}

constexpr WorkflowRow kWorkflows[] = {{.name = "Raising", .run = RunOrRaise, .type = 1, .number = 1}};
constexpr LauncherTable kLaunchers = {
    kWorkflows, [](const std::string&) {},       [](const std::string&) { return std::string(); },
    [] {},      []() noexcept { ++gAbandoned; },
};

using namespace pvn_workflow;

Status WaitForCancel(T_StorageInterface&, const WorkerNotifier&) {
    constexpr std::uint16_t kSeconds = 60; // only a failing test takes them
    const EventHandle never(MakeEvent(nullptr));
    return StatusOfWait(CallLimit(kSeconds).Await(never.get()));
}

Status RaiseAtWork(T_StorageInterface&, const WorkerNotifier&) {
    host_catch::Raise(kOtherCode);
    return kStatusSuccess;
}

Status RaiseBesideAWorker(T_StorageInterface&) {
    StartWorker({WaitForCancel, std::make_shared<WorkerBag>(), BeginWorkerRun()}, ProgressNotifier);
    host_catch::Raise(kOtherCode);
    return kStatusSuccess;
}

Status RaiseInItsOwnWorker(T_StorageInterface&) {
    RunWorkerHere({RaiseAtWork, std::make_shared<WorkerBag>(), BeginWorkerRun()}, ProgressNotifier);
    return kStatusSuccess;
}

class AbandonedRun : public testing::Test {
protected:
    void SetUp() override {
        ResetFrameState();
        GetFrameState().testLaunchers = &kLaunchers;
        gRaisedCode = 0;
        gTerminates = false;
        gAbandoned = 0;
        ASSERT_EQ(Pavane_Initialize(0, 0), PAVANE_SUCCESS);
    }
    void TearDown() override { ResetFrameState(); }
};

TEST_F(AbandonedRun, EndsBeforeTheHostCatchesTheException) {
    for (const DWORD code : {kForeignException, kOtherCode, DWORD(EXCEPTION_ACCESS_VIOLATION)}) {
        gRaisedCode = code;
        EXPECT_EQ(host_catch::CodeCaughtFrom([] { Pavane_RunWorkflow(1, nullptr); }), code);
        EXPECT_FALSE(IsRunUnderWay());
        EXPECT_EQ(Pavane_Info_GetErrorCode(), PAVANE_EXCEPTION);
        EXPECT_EQ(GetFrameState().gPreloadedWorkflow, 0);
    }
    EXPECT_EQ(gAbandoned, 3);
    gRaisedCode = 0;
    EXPECT_EQ(Pavane_RunWorkflow(1, nullptr), PAVANE_SUCCESS) << "the next run works";
    EXPECT_EQ(gAbandoned, 3);
}

TEST_F(AbandonedRun, ExecutesADeferredTerminate) {
    gRaisedCode = kOtherCode;
    gTerminates = true;
    EXPECT_EQ(host_catch::CodeCaughtFrom([] { Pavane_RunWorkflow(1, nullptr); }), kOtherCode);
    EXPECT_EQ(GetFrameState().gPavaneContext, nullptr);
    EXPECT_FALSE(IsRunUnderWay());
}

TEST_F(AbandonedRun, LeavesNoWorkerThatRefusesTheNextOne) {
    static constexpr WorkflowRow rows[] = {
        {.name = "Beside", .run = RaiseBesideAWorker, .type = 1, .number = 1},
        {.name = "Inside", .run = RaiseInItsOwnWorker, .type = 2, .number = 2}};
    LauncherTable launchers = kLauncherTable;
    launchers.workflows = rows;
    GetFrameState().testLaunchers = &launchers;
    for (const WorkflowRow& row : rows) {
        EXPECT_EQ(host_catch::CodeCaughtFrom([&row] { Pavane_RunWorkflow(row.number, nullptr); }),
                  kOtherCode);
        const ULONGLONG start = GetTickCount64();
        while (IsWorkerRunning() && GetTickCount64() - start < kLongestWaitForWorker) Sleep(1);
        EXPECT_FALSE(IsWorkerRunning()) << row.name;
        EXPECT_EQ(gProgressPercent(), 0) << "its report is dropped";
    }
}

TEST_F(AbandonedRun, AnExceptionOfThisCompilerIsAStatusAndAbandonsNothing) {
    static constexpr WorkflowRow throwing[] = {
        {.name = "Throwing", .run = [](T_StorageInterface&) -> Status { throw 1; }, .type = 1, .number = 1}};
    LauncherTable launchers = kLaunchers;
    launchers.workflows = throwing;
    GetFrameState().testLaunchers = &launchers;
    EXPECT_EQ(Pavane_RunWorkflow(1, nullptr), PAVANE_EXCEPTION);
    EXPECT_EQ(gAbandoned, 0);
}

} // namespace
} // namespace brixen::pvn
