#include "frame/stop_watch.h"

#include "frame/frame_state.h"

#include "support/log_file.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace brixen::pvn {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class StopWatch : public testing::Test {
protected:
    void SetUp() override {
        ResetFrameState();
        OpenLog(false);
    }
    void TearDown() override { ResetFrameState(); }

    void TicksAre(std::uint32_t ticks) { GetFrameTwin().tickCount = ticks; }

    pavane_test::LogFile log;
};

TEST_F(StopWatch, ShowsTheTicksOfTheSystemBeforeAnyReset) {
    TicksAre(12500);
    EXPECT_FLOAT_EQ(StopWatchSeconds(), 12.5f);
}

TEST_F(StopWatch, CountsFromTheReset) {
    TicksAre(1000);
    ResetStopWatch();
    EXPECT_FLOAT_EQ(StopWatchSeconds(), 0);
    TicksAre(1250);
    EXPECT_FLOAT_EQ(StopWatchSeconds(), 0.25f);
}

TEST_F(StopWatch, SurvivesTheWrapOfTheTickCount) {
    TicksAre(0xFFFFFF00);
    ResetStopWatch();
    TicksAre(0x00000100);
    EXPECT_FLOAT_EQ(StopWatchSeconds(), 0.512f);
}

TEST_F(StopWatch, TheResetLineNamesTheFunctionThatReset) {
    TicksAre(5000);
    LogStopWatchReset({"brixen::pvn::Somebody", 17});
    EXPECT_EQ(GetFrameState().gStopWatchStart, 5000u);
    EXPECT_THAT(log.Bodies(), ElementsAre("PVN: _time_: reset stop watch (clock: 0.0 sec, "
                                          "func: brixen::pvn::Somebody, line: 17)"));
}

TEST_F(StopWatch, TheClockLineHasItsLabel) {
    TicksAre(1000);
    ResetStopWatch();
    TicksAre(3345);
    LogClock(kFirstUserEventLabel);
    EXPECT_THAT(log.Bodies(), ElementsAre("PVN: _time_: dialog receive first user event (clock: 2.345 sec)"));
}

TEST_F(StopWatch, ADurationOfAMillisecondMakesALine) {
    TicksAre(100);
    {
        const DurationLine line("brixen::pvn::LongWork");
        TicksAre(101);
    }
    EXPECT_THAT(log.Bodies(), ElementsAre("PVN: _time_: (func: brixen::pvn::LongWork, duration: 0.001 sec)"));
}

TEST_F(StopWatch, ADurationWithoutATickMakesNone) {
    TicksAre(100);
    { const DurationLine line("brixen::pvn::ShortWork"); }
    EXPECT_THAT(log.Bodies(), IsEmpty());
}

TEST_F(StopWatch, ADurationSurvivesTheWrap) {
    TicksAre(0xFFFFFFFF);
    {
        const DurationLine line("brixen::pvn::LongWork");
        TicksAre(1999);
    }
    EXPECT_THAT(log.Bodies(), ElementsAre("PVN: _time_: (func: brixen::pvn::LongWork, duration: 2.000 sec)"));
}

TEST_F(StopWatch, ADurationThatEndsInAnExceptionIsLogged) {
    TicksAre(0);
    try {
        const DurationLine line("brixen::pvn::LongWork");
        TicksAre(1500);
        throw 1;
    } catch (int) {
    }
    EXPECT_THAT(log.Bodies(), ElementsAre("PVN: _time_: (func: brixen::pvn::LongWork, duration: 1.500 sec)"));
}

} // namespace
} // namespace brixen::pvn
