#include "workflow/controls/busy_bar.h"

#include "toolkit/message_numbers.h"
#include "unit/workflow/controls/painting_fixture.h"
#include "workflow/controls/busy_bar_cell.h"
#include "workflow/platform/headless/accessible_recorder.h"
#include "workflow/platform/message_numbers.h"

#include <gmock/gmock.h>

#include <memory>
#include <optional>

namespace brixen::pvn::pvn_workflow {
namespace {

using testing::_;
using testing::ElementsAre;
using zeve::headless::CallsOf;
using zeve::headless::FireTimer;

class BusyBars : public PaintingFixture {
protected:
    BusyBars() { EXPECT_TRUE(bar.Attach(control)); }

    std::intptr_t Tell(std::uint32_t message, std::uintptr_t wparam = 0) {
        return zeve::platform::Send(control, message, wparam, 0);
    }
    // The left edges at which a paint draws the cell.
    std::vector<std::int64_t> CellsPainted() {
        Recorder().calls.clear();
        Tell(zeve::kMessagePaint);
        std::vector<std::int64_t> lefts;
        for (const auto& call : platform::PaintingCallsOf("BlendBitmap")) lefts.push_back(call.numbers[0]);
        return lefts;
    }
    void Fire(int times) {
        for (int i = 0; i < times; ++i) EXPECT_TRUE(FireTimer(control, kBusyTimer));
    }

    zeve::NativeWindow dialog = MakeDialog();
    zeve::NativeWindow control = MakeControl(dialog, 10, 20, 100, 13);
    BusyBar bar;
};

TEST_F(BusyBars, APaintIsAFrameAndTheCell) {
    Recorder().systemColors = {{5, 0xFFFFFF}, {21, 0x696969}, {16, 0xA0A0A0}};
    Tell(kMessageSystemColors);
    Tell(zeve::kMessagePaint);
    EXPECT_THAT(NumbersOf("DrawRoundFrame"), ElementsAre(0, 0, 100, 13, 3, 0x696969, 0xFFFFFF));
    EXPECT_THAT(NumbersOf("BlendBitmap"), ElementsAre(0, 3, 21, 10, _, 255));
    EXPECT_EQ(platform::PaintingCallsOf("CopyToWindow").size(), 1u) << "the window gets one copy";
}

TEST_F(BusyBars, TheCornersShowTheBackgroundOfTheParent) {
    zeve::headless::State().answer =
        [&](const zeve::headless::Message& message) -> std::optional<std::intptr_t> {
        if (message.window != dialog || message.number != zeve::kMessageColorStatic) return std::nullopt;
        EXPECT_EQ(message.lparam, static_cast<std::intptr_t>(Number(control)));
        return 0x4321;
    };
    Tell(zeve::kMessagePaint);
    EXPECT_THAT(NumbersOf("FillBrush"), ElementsAre(0, 0, 100, 13, 0x4321));
    zeve::headless::State().answer = nullptr;
    Tell(zeve::kMessagePaint);
    EXPECT_THAT(NumbersOf("FillColor"), ElementsAre(0, 0, 100, 13, platform::SystemColor(15)));
}

TEST_F(BusyBars, EndsQuietlyIfTheParentEndsItsControlDuringThePaint) {
    zeve::headless::State().answer =
        [&](const zeve::headless::Message& message) -> std::optional<std::intptr_t> {
        if (message.window == dialog && message.number == zeve::kMessageColorStatic) {
            zeve::platform::CloseWindow(control);
        }
        return std::nullopt;
    };
    Tell(zeve::kMessagePaint);
    EXPECT_EQ(bar.Window(), nullptr);
    EXPECT_TRUE(platform::PaintingCallsOf("DrawRoundFrame").empty());
}

TEST_F(BusyBars, EndsQuietlyIfTheParentEndsTheBarDuringThePaint) {
    const zeve::NativeWindow other = MakeControl(dialog, 10, 60, 100, 13);
    auto ended = std::make_unique<BusyBar>();
    EXPECT_TRUE(ended->Attach(other));
    zeve::headless::State().answer =
        [&](const zeve::headless::Message& message) -> std::optional<std::intptr_t> {
        if (message.window == dialog && message.number == zeve::kMessageColorStatic) ended.reset();
        return std::nullopt;
    };
    zeve::platform::Send(other, zeve::kMessagePaint, 0, 0);
    EXPECT_EQ(ended, nullptr);
    EXPECT_TRUE(platform::PaintingCallsOf("DrawRoundFrame").empty());
}

TEST_F(BusyBars, ChangesThatTheControlWouldPaintAreTheSystems) {
    for (const std::uint32_t message :
         {kMessageEnable, zeve::kMessageSetText, zeve::kMessageSetFont, kMessageUpdateUiState}) {
        zeve::headless::State().calls.clear();
        Tell(message);
        EXPECT_EQ(CallsOf("DefaultAnswer").size(), 1u) << message;
        EXPECT_TRUE(CallsOf("AnswerBelowLayer").empty()) << message;
        EXPECT_EQ(CallsOf("Invalidate").size(), 1u) << message;
    }
}

TEST_F(BusyBars, TheCellIsBuiltAtTheFirstPaint) {
    EXPECT_TRUE(Recorder().bitmaps.empty());
    Tell(zeve::kMessagePaint);
    Tell(zeve::kMessagePaint);
    ASSERT_EQ(Recorder().bitmaps.size(), 1u);
    const platform::PixelRows cell = platform::PixelsOf(Recorder().bitmaps.begin()->first);
    EXPECT_EQ(cell.width, kBusyCellWidth);
    EXPECT_EQ(cell.height, kBusyCellHeight);
    EXPECT_EQ(cell.Row(0)[16 * 4], std::byte{0xF3}) << "blue of the bar's color";
}

TEST_F(BusyBars, TheTimerMovesTheCell) {
    bar.Start();
    const auto timers = zeve::headless::FindWindow(control)->timers;
    EXPECT_EQ(timers, (std::map<std::uintptr_t, std::uint32_t>{{12, 100}}));
    Fire(1);
    EXPECT_EQ(bar.Position(), 9);
    Fire(1);
    EXPECT_EQ(bar.Position(), 18);
    EXPECT_THAT(CellsPainted(), ElementsAre(18));
}

TEST_F(BusyBars, EachStepAsksForAPaint) {
    bar.Start();
    const auto before = CallsOf("Invalidate").size();
    Fire(3);
    EXPECT_EQ(CallsOf("Invalidate").size(), before + 3);
}

TEST_F(BusyBars, BehindTheRightEdgeTheCellEntersAgain) {
    bar.Start(50);
    Fire(2);
    EXPECT_EQ(bar.Position(), 100) << "the client width is still in";
    Fire(1);
    EXPECT_EQ(bar.Position(), -14);
    EXPECT_THAT(CellsPainted(), ElementsAre(-14));
    Fire(1);
    EXPECT_EQ(bar.Position(), 36);
}

TEST_F(BusyBars, AnotherTimerMovesNothing) {
    bar.Start();
    Tell(zeve::kMessageTimer, 1);
    EXPECT_EQ(bar.Position(), 0);
}

TEST_F(BusyBars, AFinishedBarIsFull) {
    bar.Start();
    Fire(5);
    bar.SetFinished();
    EXPECT_TRUE(bar.IsFinished());
    EXPECT_FALSE(FireTimer(control, kBusyTimer));
    EXPECT_THAT(CellsPainted(), ElementsAre(4, 27, 50, 73)) << "while x is less than 100 - 8";
}

TEST_F(BusyBars, TheLastCellOfAFullBarEndsBeforeTheEdge) {
    zeve::platform::MoveTo(control, 10, 20, 104, 13);
    bar.SetFinished();
    EXPECT_THAT(CellsPainted(), ElementsAre(4, 27, 50, 73));
    zeve::platform::MoveTo(control, 10, 20, 105, 13);
    EXPECT_THAT(CellsPainted(), ElementsAre(4, 27, 50, 73, 96));
}

TEST_F(BusyBars, AStoppedBarShowsTheCellWhereItIs) {
    bar.Start();
    Fire(2);
    bar.SetFinished();
    bar.Stop();
    EXPECT_FALSE(bar.IsFinished());
    EXPECT_THAT(CellsPainted(), ElementsAre(18));
    bar.SetFinished();
    bar.Start();
    EXPECT_FALSE(bar.IsFinished());
}

TEST_F(BusyBars, ColorsAreReadAtCreateAtResizeAndWhenTheyChange) {
    const auto frameOfPaint = [&] {
        Recorder().calls.clear();
        Tell(zeve::kMessagePaint);
        return NumbersOf("DrawRoundFrame")[5];
    };
    Recorder().systemColors[21] = 0x111111;
    EXPECT_EQ(frameOfPaint(), 0x010101 * 21) << "as it was at the start";
    Tell(kMessageSize);
    EXPECT_EQ(frameOfPaint(), 0x111111);
    Recorder().systemColors[21] = 0x222222;
    EXPECT_EQ(frameOfPaint(), 0x111111);
    Tell(kMessageSystemColors);
    EXPECT_EQ(frameOfPaint(), 0x222222);
}

TEST_F(BusyBars, NothingIsErased) {
    Recorder().calls.clear();
    EXPECT_EQ(Tell(zeve::kMessageEraseBackground), 1);
    EXPECT_TRUE(Recorder().calls.empty());
}

TEST_F(BusyBars, TheEndOfTheWindowEndsTheTimerAndTheFinishedForm) {
    bar.Start();
    bar.SetFinished();
    Tell(kMessageDestroy);
    EXPECT_FALSE(bar.IsFinished());
    EXPECT_TRUE(zeve::headless::FindWindow(control)->timers.empty());
    zeve::platform::CloseWindow(dialog);
    EXPECT_EQ(bar.Window(), nullptr);
}

TEST_F(BusyBars, AfterTheEndOfItsWindowABarTouchesNone) {
    zeve::platform::CloseWindow(dialog);
    zeve::headless::State().calls.clear();
    bar.Start();
    bar.SetFinished();
    { const BusyBar never; }
    for (const auto& call : zeve::headless::State().calls) EXPECT_EQ(call.window, nullptr) << call.name;
}

TEST_F(BusyBars, ABarThatGoesFirstLeavesItsControlAsItWas) {
    {
        const zeve::NativeWindow other = MakeControl(dialog, 0, 0, 50, 13);
        BusyBar shortLived;
        EXPECT_TRUE(shortLived.Attach(other));
        shortLived.Start();
        EXPECT_FALSE(BusyBar().Attach(other)) << "the control is taken";
    }
    EXPECT_EQ(CallsOf("DropLayer").size(), 1u);
    EXPECT_FALSE(bar.Attach(MakeControl(dialog, 0, 0, 50, 13))) << "a bar has one control";
    EXPECT_FALSE(BusyBar().Attach(nullptr));
}

TEST_F(BusyBars, ForAScreenReaderItIsAProgressBarThatIsBusyWhileItRuns) {
    platform::AccessibleRecorder& heard = platform::TheAccessibleRecorder();
    heard.Reset();
    const auto ask = [&]() -> const platform::AccessibleControl& {
        EXPECT_EQ(zeve::platform::Send(control, platform::kMessageGetObject, 0, platform::kObjectOfControl),
                  1);
        return **heard.objects.back();
    };
    EXPECT_EQ(ask().AccessibleRole(), 48);
    EXPECT_EQ(ask().AccessibleState(), 0x40u);
    EXPECT_EQ(ask().AccessibleValue(), u"");
    EXPECT_EQ(ask().DefaultActionName(), u"");
    bar.Start();
    EXPECT_EQ(ask().AccessibleState(), 0x840u);
    bar.SetFinished();
    EXPECT_EQ(ask().AccessibleState(), 0x40u);
    bar.Start();
    bar.Stop();
    EXPECT_EQ(ask().AccessibleState(), 0x40u);
    const platform::Announcement changed{control, platform::AccessibleChange::kState};
    EXPECT_THAT(heard.announced, ElementsAre(changed, changed, changed, changed));
    EXPECT_EQ(zeve::platform::Send(control, platform::kMessageGetObject, 0, 0), 0);
    zeve::platform::CloseWindow(control);
    EXPECT_EQ(*heard.objects.back(), nullptr);
    heard.Reset();
}

TEST_F(BusyBars, WithoutMemoryForTheCellTheFrameIsDrawn) {
    Recorder().refuseBitmap = true;
    EXPECT_TRUE(CellsPainted().empty());
    EXPECT_EQ(platform::PaintingCallsOf("DrawRoundFrame").size(), 1u);
    Recorder().refuseBitmap = false;
    EXPECT_THAT(CellsPainted(), ElementsAre(0)) << "tried again";
}

} // namespace
} // namespace brixen::pvn::pvn_workflow
