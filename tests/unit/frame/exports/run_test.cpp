#include "unit/frame/exports/exports_fixture.h"

#include "frame/stop_watch.h"
#include "support/failing_allocator.h"
#include "workflow/context/context_keys.h"

#include <stdexcept>

namespace brixen::pvn {
namespace {

using namespace pvn_workflow;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr char kStart[] = "PVN: _info_: ----- Start First Workflow -----";
constexpr char kEnd[] = "PVN: _info_: ----- End First Workflow -----";
constexpr char kReset[] =
    "PVN: _time_: reset stop watch (clock: 0.0 sec, func: brixen::pvn::LaunchWorkflow, line: 64)";
constexpr char kNotPrepared[] =
    "PVN: __req_: (func: brixen::pvn::Pavane_RunWorkflow, line: 394, value: 33030)";

class PavaneRun : public Exports {};

TEST_F(PavaneRun, WithoutAContextIsRefusedAndLogged) {
    OpenLog(false);
    GetFrameState().gPreloadedWorkflow = 1;
    EXPECT_EQ(Pavane_RunWorkflow(1, nullptr), PAVANE_NOT_INITIALIZED);
    EXPECT_EQ(Pavane_Info_GetErrorCode(), PAVANE_NOT_INITIALIZED);
    EXPECT_EQ(GetFrameState().gPreloadedWorkflow, 0) << "as after any run";
    EXPECT_THAT(Lines(), ElementsAre("PVN: __req_: (func: brixen::pvn::Pavane_RunWorkflow, line: 392)"));
    EXPECT_THAT(gEngine.calls, IsEmpty());
}

TEST_F(PavaneRun, PreparesRunsAndFramesTheRunInTheLog) {
    Pavane_Initialize(0, 0);
    EXPECT_EQ(Pavane_RunWorkflow(1, nullptr), PAVANE_SUCCESS);
    EXPECT_EQ(Pavane_Info_GetErrorCode(), PAVANE_SUCCESS);
    EXPECT_EQ(GetFrameState().gPreloadedWorkflow, 0);
    EXPECT_THAT(gEngine.calls, ElementsAre("select en_US", "run"));
    EXPECT_THAT(Lines(), ElementsAre(kStart, kReset, kEnd));
}

TEST_F(PavaneRun, APreloadedWorkflowRunsAtOnceAndTheNextRunPreparesAgain) {
    Pavane_Initialize(0, 0);
    Pavane_PreloadWorkflow(1);
    Pavane_RunWorkflow(1, nullptr);
    EXPECT_THAT(gEngine.calls, ElementsAre("select en_US", "run"));
    Pavane_RunWorkflow(1, nullptr);
    EXPECT_THAT(gEngine.calls, ElementsAre("select en_US", "run", "select en_US", "run"));
}

TEST_F(PavaneRun, PreparesAWorkflowOtherThanThePreloadedOne) {
    Pavane_Initialize(0, 0);
    Pavane_PreloadWorkflow(1);
    EXPECT_EQ(Pavane_RunWorkflow(2, nullptr), PAVANE_SUCCESS);
    EXPECT_THAT(gEngine.calls, ElementsAre("select en_US", "select en_US", "load second", "run"));
}

TEST_F(PavaneRun, AFailedPreloadFailsTheRunThatFollowsWithoutTryingAgain) {
    Pavane_Initialize(0, 0);
    EXPECT_EQ(Pavane_PreloadWorkflow(7), PAVANE_BAD_ARGUMENT);
    gEngine.calls.clear();
    EXPECT_EQ(Pavane_RunWorkflow(7, nullptr), PAVANE_BAD_ARGUMENT);
    EXPECT_EQ(GetFrameState().gPreloadedWorkflow, 0);
    EXPECT_THAT(gEngine.calls, IsEmpty());
    EXPECT_THAT(Lines(), ElementsAre(kNotPrepared));
}

TEST_F(PavaneRun, UnknownNumbersAndThoseWithoutALauncherAreRefused) {
    Pavane_Initialize(0, 0);
    for (const std::uint16_t number : std::initializer_list<std::uint16_t>{3, 5, 6, 0xFFFF}) {
        EXPECT_EQ(Pavane_RunWorkflow(number, nullptr), PAVANE_BAD_ARGUMENT) << number;
        EXPECT_EQ(Pavane_Info_GetErrorCode(), PAVANE_BAD_ARGUMENT);
        EXPECT_EQ(GetFrameState().gPreloadedWorkflow, 0);
    }
    EXPECT_THAT(Lines(), ElementsAre(kNotPrepared, kNotPrepared, kNotPrepared, kNotPrepared));
}

TEST_F(PavaneRun, NumberZeroCountsAsPreparedAndIsRefusedAtTheDispatch) {
    Pavane_Initialize(0, 0);
    EXPECT_EQ(Pavane_RunWorkflow(0, nullptr), PAVANE_BAD_ARGUMENT);
    EXPECT_EQ(Pavane_Info_GetErrorCode(), PAVANE_BAD_ARGUMENT);
    EXPECT_EQ(GetFrameState().gPreloadedWorkflow, 0);
    EXPECT_THAT(gEngine.calls, IsEmpty());
    EXPECT_THAT(Lines(), IsEmpty());
    EXPECT_EQ(Pavane_RunWorkflow(0, nullptr), PAVANE_BAD_ARGUMENT);
    EXPECT_THAT(Lines(), ElementsAre(kNotPrepared)) << "now the latest status says that preparing it failed";
}

TEST_F(PavaneRun, OfNumberZeroReturnsTheDecisionOfTheRunBefore) {
    Pavane_Initialize(0, 0);
    gEngine.run = [](T_StorageInterface&) -> Status { return kStatusUserCancel; };
    EXPECT_EQ(Pavane_RunWorkflow(1, nullptr), PAVANE_USER_CANCEL);
    gEngine.calls.clear();
    EXPECT_EQ(Pavane_RunWorkflow(0, nullptr), PAVANE_USER_CANCEL);
    EXPECT_THAT(gEngine.calls, IsEmpty());
}

TEST_F(PavaneRun, LooksUpTheLanguageOfTheThreadEachTime) {
    Pavane_Initialize(0, 0);
    for (const auto& [identifier, call] :
         {std::pair{0x0407, "select de_DE"}, std::pair{0x0411, "select ja_JP"}}) {
        gEngine.calls.clear();
        GetFrameTwin().threadLanguage = static_cast<LanguageIdentifier>(identifier);
        Pavane_RunWorkflow(1, nullptr);
        ASSERT_FALSE(gEngine.calls.empty());
        EXPECT_EQ(gEngine.calls.front(), call);
    }
}

TEST_F(PavaneRun, AFailedPreloadWithAnOverwrittenStatusIsRefusedAtTheDispatch) {
    Pavane_Initialize(0, 0);
    EXPECT_EQ(Pavane_PreloadWorkflow(7), PAVANE_BAD_ARGUMENT);
    EXPECT_EQ(Pavane_Initialize(0, 0), PAVANE_SUCCESS) << "the latest status now";
    const auto lines = Lines();
    EXPECT_EQ(Pavane_RunWorkflow(7, nullptr), PAVANE_BAD_ARGUMENT);
    EXPECT_EQ(Pavane_Info_GetErrorCode(), PAVANE_BAD_ARGUMENT);
    EXPECT_EQ(GetFrameState().gPreloadedWorkflow, 0) << "as after any run";
    EXPECT_EQ(Lines(), lines);
}

TEST_F(PavaneRun, TheBagHoldsWhatEveryWorkflowGets) {
    int window = 0;
    Pavane_Initialize(-3, PAVANE_HOST_OPTIONS(0x0411, 0));
    gEngine.run = [&](T_StorageInterface& bag) -> Status {
        std::uint32_t number = 0;
        EXPECT_TRUE(GetLong(bag, PvnWFKey_WorkFlow_Type, number));
        EXPECT_EQ(number, 11u);
        EXPECT_TRUE(GetLong(bag, PvnWFKey_HostApp, number));
        EXPECT_EQ(static_cast<std::int32_t>(number), -3);
        void* parent = nullptr;
        EXPECT_TRUE(GetPtr(bag, PvnWFKey_MainWindow, parent));
        EXPECT_EQ(parent, &window);
        std::string text;
        EXPECT_TRUE(GetString(bag, PvnWFKey_Language, text));
        EXPECT_EQ(text, "ja_JP");
        EXPECT_FALSE(GetString(bag, PvnWFKey_ProductName, text)) << "this one does not show its host";
        EXPECT_FALSE(GetLong(bag, PvnWFKey_AllowCancel, number)) << "and this one cannot be canceled";
        return kStatusSuccess;
    };
    EXPECT_EQ(Pavane_RunWorkflow(1, &window), PAVANE_SUCCESS);
    EXPECT_EQ(gEngine.calls.back(), "run");
}

TEST_F(PavaneRun, TheBagHoldsTheHostNameAndAllowCancelWhereTheRowSaysSo) {
    for (const std::uint32_t withheld : {0u, 1u}) {
        Pavane_Initialize(0, withheld);
        gEngine.run = [&](T_StorageInterface& bag) -> Status {
            std::string text;
            EXPECT_TRUE(GetString(bag, PvnWFKey_ProductName, text));
            EXPECT_EQ(text, "The Host");
            std::uint32_t allowed = 9;
            EXPECT_TRUE(GetLong(bag, PvnWFKey_AllowCancel, allowed));
            EXPECT_EQ(allowed, 1 - withheld);
            return kStatusSuccess;
        };
        EXPECT_EQ(Pavane_RunWorkflow(2, nullptr), PAVANE_SUCCESS);
        Pavane_Terminate();
    }
}

TEST_F(PavaneRun, AnyExceptionBecomes33289AndTheEndLineIsWritten) {
    const std::function<Status(T_StorageInterface&)> throwers[] = {
        [](T_StorageInterface&) -> Status { throw std::runtime_error("text"); },
        [](T_StorageInterface&) -> Status { throw 5; },
        [](T_StorageInterface&) -> Status { throw std::bad_alloc(); },
    };
    for (const auto& thrower : throwers) {
        gEngine.run = thrower;
        Pavane_Initialize(0, 0);
        EXPECT_EQ(Pavane_RunWorkflow(1, nullptr), PAVANE_EXCEPTION);
        EXPECT_EQ(Pavane_Info_GetErrorCode(), PAVANE_EXCEPTION);
        EXPECT_EQ(GetFrameState().gPreloadedWorkflow, 0);
        Pavane_Terminate();
    }
    EXPECT_THAT(Lines(), ElementsAre(kStart, kReset, kEnd, kStart, kReset, kEnd, kStart, kReset, kEnd));
}

TEST_F(PavaneRun, LogsTheDecisionsOfTheUser) {
    const struct {
        Status status;
        const char* line;
    } kCases[] = {
        {kStatusUserQuit, "PVN: _info_: User chose to quit app"},
        {kStatusUserCancel, "PVN: _info_: User chose to cancel workflow"},
        {kStatusUserOutcome3, nullptr},
        {kStatusUnmappedOutcome, nullptr},
        {0x8301, nullptr},
    };
    for (const auto& given : kCases) {
        gEngine.run = [&](T_StorageInterface&) { return given.status; };
        Pavane_Initialize(0, 0);
        EXPECT_EQ(Pavane_RunWorkflow(1, nullptr), given.status);
        EXPECT_EQ(Pavane_Info_GetErrorCode(), given.status);
        Pavane_Terminate();
        std::vector<std::string> expected = {kStart, kReset, kEnd};
        if (given.line) expected.insert(expected.begin() + 2, given.line);
        EXPECT_EQ(Lines(), expected) << given.status;
        std::filesystem::remove(log.Path());
    }
}

TEST_F(PavaneRun, ResetsTheStopWatchAndThePhase) {
    Pavane_Initialize(0, 0);
    GetFrameState().gPavaneContext->workflowPhase = kPhaseEnded;
    GetFrameTwin().tickCount = 5000;
    gEngine.run = [](T_StorageInterface&) -> Status {
        EXPECT_EQ(GetFrameState().gStopWatchStart, 5000u);
        EXPECT_EQ(GetFrameState().gPavaneContext->workflowPhase, kPhaseIdle);
        return kStatusSuccess;
    };
    EXPECT_EQ(Pavane_RunWorkflow(1, nullptr), PAVANE_SUCCESS);
}

TEST_F(PavaneRun, WithoutMemoryEndsIn33289AndTheNextOneWorks) {
    Pavane_Initialize(0, PAVANE_HOST_OPTIONS(0x040D, 0));
    GetFrameTwin().hostProgram.productName = "a name that is much too long for the short form";
    gEngine.calls.reserve(1000);
    std::size_t failed = 0;
    const std::size_t failures = pavane_test::ForEveryFailingAllocation([&] {
        gEngine.calls.clear();
        const Status status = Pavane_RunWorkflow(2, nullptr);
        EXPECT_EQ(Pavane_Info_GetErrorCode(), status);
        EXPECT_EQ(GetFrameState().gPreloadedWorkflow, 0);
        if (status != kStatusSuccess) {
            EXPECT_EQ(status, PAVANE_EXCEPTION);
            ++failed;
        }
        gEngine.calls.clear();
    });
    EXPECT_EQ(failed, failures);
    EXPECT_GT(failures, 5u);
    EXPECT_EQ(Pavane_RunWorkflow(2, nullptr), PAVANE_SUCCESS);
}

} // namespace
} // namespace brixen::pvn
