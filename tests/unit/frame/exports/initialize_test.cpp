#include "frame/worker_thread.h"
#include "unit/frame/exports/exports_fixture.h"

#include "support/failing_allocator.h"

namespace brixen::pvn {
namespace {

using testing::ElementsAre;

class PavaneInitialize : public Exports {};

TEST_F(PavaneInitialize, MakesAContextOfItsArguments) {
    EXPECT_EQ(Pavane_Initialize(-7, 0x040D0001), PAVANE_SUCCESS);
    ASSERT_NE(GetFrameState().gPavaneContext, nullptr);
    EXPECT_EQ(GetFrameState().gPavaneContext->hostApp, -7);
    EXPECT_EQ(GetFrameState().gPavaneContext->hostOptions, 0x040D0001u);
    EXPECT_NE(GetFrameState().gLogStream, nullptr);
    EXPECT_THAT(Lines(), ElementsAre());
}

TEST_F(PavaneInitialize, ASecondCallChangesNothingAndIsLogged) {
    Pavane_Initialize(5, 1);
    GetFrameState().gLastError = kStatusUserQuit;
    PavaneContext* const first = GetFrameState().gPavaneContext;
    EXPECT_EQ(Pavane_Initialize(2, 9), PAVANE_SUCCESS);
    EXPECT_EQ(GetFrameState().gPavaneContext, first);
    EXPECT_EQ(first->hostApp, 5);
    EXPECT_EQ(first->hostOptions, 1u);
    EXPECT_EQ(Pavane_Info_GetErrorCode(), PAVANE_SUCCESS);
    EXPECT_THAT(Lines(), ElementsAre("PVN: __req_: (func: brixen::pvn::Pavane_Initialize, line: 182)"));
}

TEST_F(PavaneInitialize, HostApp2IsRefusedAndLeavesNothingOpen) {
    EXPECT_EQ(Pavane_Initialize(2, 0), PAVANE_BAD_ARGUMENT);
    EXPECT_EQ(GetFrameState().gPavaneContext, nullptr);
    EXPECT_EQ(GetFrameState().gLogStream, nullptr);
    EXPECT_EQ(Pavane_Info_GetErrorCode(), PAVANE_BAD_ARGUMENT);
    EXPECT_THAT(Lines(), ElementsAre("PVN: __req_: (func: brixen::pvn::Pavane_Initialize, line: 187)"));
    EXPECT_EQ(Pavane_Initialize(1, 0), PAVANE_SUCCESS);
    EXPECT_EQ(Pavane_Info_GetErrorCode(), PAVANE_SUCCESS);
}

TEST_F(PavaneInitialize, WorksWithoutALog) {
    GetFrameTwin().temporaryFolder = (log.Folder() / "absent" / "").u16string();
    EXPECT_EQ(Pavane_Initialize(0, 0), PAVANE_SUCCESS);
    EXPECT_EQ(GetFrameState().gLogStream, nullptr);
    EXPECT_EQ(Pavane_RunWorkflow(1, nullptr), PAVANE_SUCCESS);
}

TEST_F(PavaneInitialize, WithoutMemoryForTheContextIsLoggedAndLeavesNothingOpen) {
    GetFrameState().gPreloadedWorkflow = 4;
    std::size_t refused = 0;
    pavane_test::ForEveryFailingAllocation([&] {
        const Status status = Pavane_Initialize(1, 0);
        EXPECT_EQ(Pavane_Info_GetErrorCode(), status);
        if (status == kStatusSuccess) {
            EXPECT_NE(GetFrameState().gPavaneContext, nullptr) << "only the log was refused";
        } else {
            EXPECT_EQ(status, PAVANE_NO_MEMORY);
            EXPECT_EQ(GetFrameState().gPavaneContext, nullptr);
            EXPECT_EQ(GetFrameState().gLogStream, nullptr);
            ++refused;
        }
        Pavane_Terminate();
    });
    EXPECT_EQ(refused, 1u);
    EXPECT_THAT(Lines(), ElementsAre("PVN: __req_: (func: brixen::pvn::Pavane_Initialize, line: 191)"));
    EXPECT_EQ(Pavane_Initialize(1, 0), PAVANE_SUCCESS) << "the next one starts clean";
    EXPECT_EQ(GetFrameState().gPreloadedWorkflow, 4);
}

TEST_F(PavaneInitialize, OnlyItsSuccessPinsTheLibrary) {
    GetFrameTwin().pins = 0;
    Pavane_GetVersion();
    EXPECT_EQ(Pavane_Initialize(2, 0), PAVANE_BAD_ARGUMENT);
    EXPECT_EQ(GetFrameTwin().pins, 0);
    EXPECT_EQ(Pavane_Initialize(1, 0), PAVANE_SUCCESS);
    EXPECT_EQ(GetFrameTwin().pins, 1);
    EXPECT_EQ(Pavane_Initialize(1, 0), PAVANE_SUCCESS);
    EXPECT_EQ(GetFrameTwin().pins, 1);
}

class PavaneTerminate : public Exports {};

TEST_F(PavaneTerminate, IsSafeAtAnyTime) {
    Pavane_Terminate();
    Pavane_Terminate();
    Pavane_Initialize(0, 0);
    Pavane_Terminate();
    Pavane_Terminate();
    EXPECT_EQ(GetFrameState().gPavaneContext, nullptr);
    EXPECT_EQ(GetFrameState().gLogStream, nullptr);
    EXPECT_THAT(gEngine.calls, ElementsAre("shut down")) << "once, for the one context";
}

TEST_F(PavaneTerminate, WithoutAContextClosesTheLog) {
    OpenLog(false);
    Pavane_Terminate();
    EXPECT_EQ(GetFrameState().gLogStream, nullptr);
    EXPECT_THAT(gEngine.calls, ElementsAre());
}

TEST_F(PavaneTerminate, KeepsTheLastErrorAndThePreloadedWorkflow) {
    Pavane_Initialize(0, 0);
    Pavane_PreloadWorkflow(9);
    Pavane_Terminate();
    EXPECT_EQ(Pavane_Info_GetErrorCode(), PAVANE_BAD_ARGUMENT);
    EXPECT_EQ(GetFrameState().gPreloadedWorkflow, 9) << "what was prepared outlives the context: intentional";
}

// Records its destruction.
class Aux : public AuxObject {
public:
    ~Aux() override { gEngine.calls.push_back("aux"); }
};

TEST_F(PavaneTerminate, DestroysTheHelperObjectThenShutsTheResourcesDown) {
    Pavane_Initialize(0, 0);
    GetFrameState().gPavaneContext->auxObject = new Aux;
    Pavane_Terminate();
    EXPECT_THAT(gEngine.calls, ElementsAre("aux", "shut down"));
}

TEST_F(PavaneTerminate, EmptiesTheContextThenShutsTheResourcesDownThenClosesTheLog) {
    Pavane_Initialize(0, 0);
    GetFrameState().gPavaneContext->auxObject = new Aux;
    const auto endAtOnce = [](void*, WorkerCallback) { return kStatusSuccess; };
    EXPECT_EQ(Pavane_Pri_RunPlatformThread(endAtOnce, nullptr, nullptr), kStatusSuccess);
    gEngine.onShutDown = [] {
        ASSERT_NE(GetFrameState().gPavaneContext, nullptr);
        EXPECT_EQ(GetFrameState().gPavaneContext->auxObject, nullptr);
        EXPECT_EQ(GetFrameState().gPavaneContext->threadHandle, nullptr);
        EXPECT_EQ(GetFrameTwin().openThreadHandles, 0);
        PvnLog("shutting down\n");
    };
    Pavane_Terminate();
    EXPECT_EQ(gEngine.calls, (std::vector<std::string>{"aux", "shut down"}));
    EXPECT_THAT(Lines(), ElementsAre("shutting down"));
}

TEST_F(PavaneTerminate, FreesTheContextWhenTheResourcesThrow) {
    gEngine.onShutDown = [] { throw 1; };
    Pavane_Initialize(0, 0);
    Pavane_Terminate();
    EXPECT_EQ(GetFrameState().gPavaneContext, nullptr);
    EXPECT_EQ(GetFrameState().gLogStream, nullptr);
}

Status EndAtOnce(void* ran, WorkerCallback) {
    static_cast<std::atomic<bool>*>(ran)->store(true);
    static_cast<std::atomic<bool>*>(ran)->notify_all();
    return kStatusSuccess;
}

TEST_F(PavaneTerminate, ClosesTheThreadHandleAndTheThreadRunsOn) {
    static std::atomic<bool> ran;
    ran = false;
    Pavane_Initialize(0, 0);
    EXPECT_EQ(Pavane_Pri_RunPlatformThread(EndAtOnce, &ran, nullptr), kStatusSuccess);
    EXPECT_EQ(GetFrameTwin().openThreadHandles, 1);
    Pavane_Terminate();
    EXPECT_EQ(GetFrameTwin().openThreadHandles, 0);
    ran.wait(false);
}

TEST_F(Exports, TheVersionNeedsNoContext) {
    EXPECT_EQ(Pavane_GetVersion(), 403023709u);
    Pavane_Initialize(0, 0);
    EXPECT_EQ(Pavane_GetVersion(), 403023709u);
}

TEST_F(Exports, TheErrorCodeIsZeroBeforeAnyCall) { EXPECT_EQ(Pavane_Info_GetErrorCode(), 0); }

} // namespace
} // namespace brixen::pvn
