#include "unit/frame/exports/exports_fixture.h"

namespace brixen::pvn {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

constexpr std::uint32_t kLongWait = 60'000; // milliseconds; only a failing test takes them

// Makes the call on a thread of its own and waits for it.
void OnAnotherThread(std::function<void()> call) {
    const auto routine = [](void* argument) -> unsigned long {
        (*static_cast<std::function<void()>*>(argument))();
        return 77;
    };
    const NativeThread thread = StartThread(routine, &call);
    ASSERT_NE(thread, nullptr);
    unsigned long code = 0;
    EXPECT_TRUE(WaitForThread(thread, kLongWait, &code));
    EXPECT_EQ(code, 77u);
    CloseThread(thread);
}

void OnThisThread(std::function<void()> call) { call(); }

using Caller = void (*)(std::function<void()>);

// Each call that comes in during a run, from the run's own thread and from another one.
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
        gPreloadedWorkflow = 1;
        EXPECT_EQ(Pavane_RunWorkflow(1, nullptr), PAVANE_BAD_ARGUMENT);
        EXPECT_EQ(Pavane_RunWorkflow(2, nullptr), PAVANE_BAD_ARGUMENT);
        EXPECT_EQ(Pavane_Info_GetErrorCode(), PAVANE_BAD_ARGUMENT);
        EXPECT_EQ(gPreloadedWorkflow, 1);
        EXPECT_EQ(gEngine.calls, calls);
    });
    EXPECT_EQ(status, PAVANE_USER_OUTCOME4);
    EXPECT_EQ(Pavane_Info_GetErrorCode(), PAVANE_USER_OUTCOME4);
    EXPECT_THAT(Lines(), SizeIs(3)) << "start, clock and end";
}

TEST_P(PavaneDuringARun, SoIsAPreload) {
    const Status status = RunWith([] {
        const auto calls = gEngine.calls;
        EXPECT_EQ(Pavane_PreloadWorkflow(1), PAVANE_BAD_ARGUMENT) << "even of the number that is running";
        EXPECT_EQ(Pavane_PreloadWorkflow(2), PAVANE_BAD_ARGUMENT);
        EXPECT_EQ(Pavane_Info_GetErrorCode(), PAVANE_BAD_ARGUMENT);
        EXPECT_EQ(gPreloadedWorkflow, 1);
        EXPECT_EQ(gEngine.calls, calls);
    });
    EXPECT_EQ(status, PAVANE_USER_OUTCOME4);
}

TEST_P(PavaneDuringARun, ATerminateWaitsForItsEnd) {
    const Status status = RunWith([] {
        Pavane_Terminate();
        Pavane_Terminate();
        EXPECT_NE(gPavaneContext, nullptr);
        EXPECT_NE(gLogStream, nullptr);
        EXPECT_EQ(Pavane_RunWorkflow(1, nullptr), PAVANE_BAD_ARGUMENT) << "the run goes on";
    });
    EXPECT_EQ(status, PAVANE_USER_OUTCOME4);
    EXPECT_EQ(gPavaneContext, nullptr);
    EXPECT_EQ(gLogStream, nullptr);
    EXPECT_EQ(Pavane_Info_GetErrorCode(), PAVANE_USER_OUTCOME4);
    EXPECT_THAT(gEngine.calls, ElementsAre("select en_US", "run", "shut down"));
    EXPECT_EQ(Lines().back(), "PVN: _info_: ----- End First Workflow -----") << "its log is whole";
    EXPECT_EQ(Pavane_Initialize(0, 0), PAVANE_SUCCESS) << "the host lives on";
    EXPECT_EQ(Pavane_RunWorkflow(2, nullptr), PAVANE_USER_OUTCOME4);
}

TEST_P(PavaneDuringARun, TheTerminateAtItsEndIsPartOfIt) {
    gEngine.onShutDown = [&] {
        GetParam()([] {
            EXPECT_EQ(Pavane_RunWorkflow(1, nullptr), PAVANE_BAD_ARGUMENT);
            EXPECT_EQ(Pavane_PreloadWorkflow(1), PAVANE_BAD_ARGUMENT);
            Pavane_Terminate();
        });
    };
    RunWith([] { Pavane_Terminate(); });
    EXPECT_EQ(gPavaneContext, nullptr);
    EXPECT_THAT(gEngine.calls, ElementsAre("select en_US", "run", "shut down"));
}

TEST_P(PavaneDuringARun, AnInitializeAnswersAsASecondOne) {
    RunWith([] { EXPECT_EQ(Pavane_Initialize(2, 8), PAVANE_SUCCESS); });
    EXPECT_EQ(gPavaneContext->hostApp, 5);
    EXPECT_THAT(Lines(),
                ElementsAre(testing::_, testing::_,
                            "PVN: __req_: (func: brixen::pvn::Pavane_Initialize, line: 182)", testing::_));
}

TEST_P(PavaneDuringARun, ATerminateThatWasCarriedOutIsForgotten) {
    RunWith([] { Pavane_Terminate(); });
    RunWith([] {});
    EXPECT_NE(gPavaneContext, nullptr);
}

TEST_P(PavaneDuringARun, PreparingCountsAsPartOfTheRun) {
    Pavane_Initialize(0, 0);
    gEngine.onSelect = [&](const std::string&) {
        GetParam()([] { EXPECT_EQ(Pavane_RunWorkflow(2, nullptr), PAVANE_BAD_ARGUMENT); });
    };
    EXPECT_EQ(Pavane_RunWorkflow(1, nullptr), PAVANE_SUCCESS);
    EXPECT_THAT(gEngine.calls, ElementsAre("select en_US", "run"));
}

INSTANTIATE_TEST_SUITE_P(FromThe, PavaneDuringARun, testing::Values(&OnThisThread, &OnAnotherThread),
                         [](const auto& given) { return given.index == 0 ? "RunsThread" : "AnotherThread"; });

} // namespace
} // namespace brixen::pvn
