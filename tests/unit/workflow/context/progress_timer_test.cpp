#include "workflow/context/progress_timer.h"

#include "unit/workflow/panes/pane_host_fixture.h"

#include <gmock/gmock.h>

namespace brixen::pvn::pvn_workflow {
namespace {

using testing::ElementsAre;
using testing::Pair;

class ProgressTimer : public PaneHost {
protected:
    static auto& Timers() { return zeve::headless::FindWindow(TopDialog())->timers; }
    zeve::ZeveDialog* Dialog() {
        void* dialog = nullptr;
        GetPtr(context, PvnWFKey_ZeveRef, dialog);
        return static_cast<zeve::ZeveDialog*>(dialog);
    }

    PVNProgressTimer timer;
};

TEST_F(ProgressTimer, PollsTwiceASecondUntilItStops) {
    RunWith([this] {
        EXPECT_EQ(timer.TimerId(), 0u);
        EXPECT_TRUE(timer.Start(Dialog()));
        EXPECT_EQ(timer.TimerId(), 1u);
        EXPECT_THAT(Timers(), ElementsAre(Pair(1u, 500u)));
        timer.Stop();
        EXPECT_EQ(timer.TimerId(), 0u);
        EXPECT_TRUE(Timers().empty());
    });
}

TEST_F(ProgressTimer, StopWithoutATimerDoesNothing) {
    timer.Stop();
    EXPECT_TRUE(zeve::headless::CallsOf("StopTimer").empty());
}

TEST_F(ProgressTimer, StopAfterTheEndOfTheDialogIsHarmless) {
    RunWith([this] { EXPECT_TRUE(timer.Start(Dialog())); });
    timer.Stop();
    EXPECT_EQ(timer.TimerId(), 0u);
}

TEST_F(ProgressTimer, WithoutAWindowThereIsNoTimer) {
    EXPECT_TRUE(timer.Start(nullptr));
    EXPECT_EQ(timer.TimerId(), 1u);
    EXPECT_TRUE(zeve::headless::CallsOf("StartTimer").empty());
}

TEST_F(ProgressTimer, ReportsThatTheSystemRefusesIt) {
    RunWith([this] {
        System().refuseTimer = 1;
        EXPECT_FALSE(timer.Start(Dialog()));
    });
}

} // namespace
} // namespace brixen::pvn::pvn_workflow
