#include "unit/frame/exports/exports_fixture.h"

#include "workflow/context/context_keys.h"

#include <stdexcept>

namespace brixen::pvn {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class PavanePreload : public Exports {};

TEST_F(PavanePreload, WithoutAContextIsRefusedAndLoggedInAnOpenLog) {
    OpenLog(false);
    EXPECT_EQ(Pavane_PreloadWorkflow(1), PAVANE_NOT_INITIALIZED);
    EXPECT_EQ(Pavane_Info_GetErrorCode(), PAVANE_NOT_INITIALIZED);
    EXPECT_EQ(GetFrameState().gPreloadedWorkflow, 0);
    EXPECT_THAT(Lines(), ElementsAre("PVN: __req_: (func: brixen::pvn::Pavane_PreloadWorkflow, line: 328)"));
    EXPECT_THAT(gEngine.calls, IsEmpty());
}

TEST_F(PavanePreload, SelectsTheLanguageOfTheHost) {
    Pavane_Initialize(0, PAVANE_HOST_OPTIONS(0x040D, 0));
    EXPECT_EQ(Pavane_PreloadWorkflow(1), PAVANE_SUCCESS);
    EXPECT_EQ(GetFrameState().gPreloadedWorkflow, 1);
    EXPECT_THAT(gEngine.calls, ElementsAre("select he_IL"));
    EXPECT_STREQ(GetFrameState().gPavaneContext->hostDisplayName, "") << "this one does not show its host";
}

TEST_F(PavanePreload, OfAWorkflowThatShowsItsHostRefreshesTheStrings) {
    Pavane_Initialize(0, PAVANE_HOST_OPTIONS(0x0410, 0));
    EXPECT_EQ(Pavane_PreloadWorkflow(4), PAVANE_SUCCESS);
    EXPECT_STREQ(GetFrameState().gPavaneContext->hostDisplayName, "The Host");
    EXPECT_STREQ(GetFrameState().gPavaneContext->hostLocale, "en_US");
    EXPECT_EQ(GetFrameState().gPavaneContext->localeIsFallback, 1u);
    EXPECT_THAT(gEngine.calls, ElementsAre("select it_IT"));
}

TEST_F(PavanePreload, LoadsTheViewThatTheRowNames) {
    Pavane_Initialize(0, 0);
    EXPECT_EQ(Pavane_PreloadWorkflow(2), PAVANE_SUCCESS);
    EXPECT_THAT(gEngine.calls, ElementsAre("select en_US", "load second"));
    EXPECT_STREQ(GetFrameState().gPavaneContext->hostDisplayName, "The Host");
}

TEST_F(PavanePreload, OfThePreparedNumberDoesNothing) {
    Pavane_Initialize(0, 0);
    Pavane_PreloadWorkflow(1);
    GetFrameState().gLastError = kStatusUserOutcome3;
    EXPECT_EQ(Pavane_PreloadWorkflow(1), PAVANE_USER_OUTCOME3) << "the latest status, whichever call left it";
    EXPECT_THAT(gEngine.calls, ElementsAre("select en_US"));
}

TEST_F(PavanePreload, OfNumberZeroCountsAsPrepared) {
    Pavane_Initialize(0, 0);
    EXPECT_EQ(Pavane_PreloadWorkflow(0), PAVANE_SUCCESS);
    Pavane_PreloadWorkflow(9);
    GetFrameState().gPreloadedWorkflow = 0;
    EXPECT_EQ(Pavane_PreloadWorkflow(0), PAVANE_BAD_ARGUMENT) << "the status of the call before";
}

TEST_F(PavanePreload, OutlivesATerminate) {
    Pavane_Initialize(0, 0);
    Pavane_PreloadWorkflow(2);
    Pavane_Terminate();
    Pavane_Initialize(0, 0);
    gEngine.calls.clear();
    EXPECT_EQ(Pavane_PreloadWorkflow(2), PAVANE_SUCCESS);
    EXPECT_THAT(gEngine.calls, IsEmpty());
    gEngine.run = [](T_StorageInterface& bag) -> Status {
        std::string name = "before";
        EXPECT_TRUE(GetString(bag, pvn_workflow::PvnWFKey_ProductName, name));
        EXPECT_EQ(name, "") << "the new context was not refreshed: intentional";
        return kStatusSuccess;
    };
    EXPECT_EQ(Pavane_RunWorkflow(2, nullptr), PAVANE_SUCCESS);
    EXPECT_THAT(gEngine.calls, ElementsAre("run"));
}

TEST_F(PavanePreload, NumbersOutsideTheSetAreRefusedWithoutARefresh) {
    for (const std::uint16_t number : std::initializer_list<std::uint16_t>{3, 5, 6, 0xFFFF}) {
        Pavane_Initialize(0, 0);
        EXPECT_EQ(Pavane_PreloadWorkflow(number), PAVANE_BAD_ARGUMENT) << number;
        EXPECT_EQ(Pavane_Info_GetErrorCode(), PAVANE_BAD_ARGUMENT);
        EXPECT_EQ(GetFrameState().gPreloadedWorkflow, number);
        EXPECT_STREQ(GetFrameState().gPavaneContext->hostDisplayName, "");
        Pavane_Terminate();
    }
}

TEST_F(PavanePreload, AnExceptionIsKeptAsTheResult) {
    Pavane_Initialize(0, 0);
    gEngine.onSelect = [](const std::string&) { throw std::runtime_error("missing resource"); };
    EXPECT_EQ(Pavane_PreloadWorkflow(1), PAVANE_EXCEPTION);
    EXPECT_EQ(Pavane_Info_GetErrorCode(), PAVANE_EXCEPTION);
    EXPECT_EQ(GetFrameState().gPreloadedWorkflow, 1);
    gEngine.onSelect = {};
    EXPECT_EQ(Pavane_RunWorkflow(1, nullptr), PAVANE_EXCEPTION) << "the run does not try again";
    EXPECT_EQ(Pavane_RunWorkflow(1, nullptr), PAVANE_SUCCESS) << "the one after it does";
}

TEST_F(PavanePreload, AMissingViewIsAnException) {
    Pavane_Initialize(0, 0);
    gEngine.onLoad = [] { throw std::runtime_error("missing resource"); };
    EXPECT_EQ(Pavane_PreloadWorkflow(2), PAVANE_EXCEPTION);
    EXPECT_STREQ(GetFrameState().gPavaneContext->hostDisplayName, "") << "loading comes before the refresh";
}

} // namespace
} // namespace brixen::pvn
