#include "workflow/controls/my_prog_bar.h"

#include "toolkit/message_numbers.h"
#include "unit/workflow/controls/painting_fixture.h"
#include "workflow/controls/gauge_geometry.h"
#include "workflow/platform/headless/accessible_recorder.h"
#include "workflow/platform/headless/control_class_recorder.h"
#include "workflow/platform/headless/text_recorder.h"
#include "workflow/platform/message_numbers.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <string>

namespace brixen::pvn::pvn_workflow {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using zeve::headless::CallsOf;

class MyProgBars : public PaintingFixture {
protected:
    MyProgBars() {
        Clear();
        gauge = MakeGauge(dialog, 7, {10, 20, 210, 60});
    }
    ~MyProgBars() override { Clear(); }

    std::intptr_t Tell(std::uint32_t message, std::intptr_t lparam = 0) const {
        return platform::TheControlClassRecorder().registered->procedure(gauge, message, 0, lparam);
    }
    void Set(std::uint32_t start, std::uint32_t end, std::int32_t position) const {
        Tell(kGaugeSetRange, static_cast<std::intptr_t>(start << 16 | end));
        Tell(kGaugeSetPosition, position);
    }
    // The areas that a paint fills with that color, each as left and right.
    std::vector<std::pair<std::int64_t, std::int64_t>> Filled(platform::Color color) const {
        Recorder().calls.clear();
        Tell(zeve::kMessagePaint);
        std::vector<std::pair<std::int64_t, std::int64_t>> areas;
        for (const auto& call : platform::PaintingCallsOf("FillColor")) {
            if (call.numbers[4] == color && call.numbers[0] < call.numbers[2])
                areas.emplace_back(call.numbers[0], call.numbers[2]);
        }
        return areas;
    }
    static void SetCaption(std::u16string_view text, std::uint32_t percent) {
        GaugeCaption record;
        std::ranges::copy(text, record.text);
        record.percent = percent;
        SetGaugeCaption(record);
    }

    zeve::NativeWindow dialog = MakeDialog();
    zeve::NativeWindow gauge = nullptr;

private:
    static void Clear() {
        platform::TheControlClassRecorder().Reset();
        platform::TheTextRecorder().Reset();
        TheGaugeData() = GaugeData();
    }
};

TEST_F(MyProgBars, TheClassIsRegisteredOnce) {
    EXPECT_NE(MakeGauge(dialog, 8, {0, 0, 10, 10}), nullptr);
    EXPECT_EQ(platform::TheControlClassRecorder().registrations, 1);
    const platform::ControlClass& registered = *platform::TheControlClassRecorder().registered;
    EXPECT_EQ(std::u16string(registered.name), u"MyProgBar");
    EXPECT_EQ(registered.style, 3u);
    EXPECT_EQ(registered.windowBytes, 32);
    EXPECT_EQ(zeve::headless::FindWindow(gauge)->className, u"MyProgBar");
    EXPECT_EQ(zeve::headless::FindWindow(gauge)->id, 7);
}

TEST_F(MyProgBars, WithoutTheClassThereIsNoGauge) {
    platform::TheControlClassRecorder().Reset();
    platform::TheControlClassRecorder().refuseClass = true;
    EXPECT_EQ(MakeGauge(dialog, 8, {0, 0, 10, 10}), nullptr);
}

TEST_F(MyProgBars, EachWindowStoresTwoNumbers) {
    Tell(kMessageCreate);
    EXPECT_EQ(platform::NumberInWindow(gauge, 16), 0x1E0000);
    EXPECT_EQ(platform::NumberInWindow(gauge, 24), 10);
}

TEST_F(MyProgBars, RangeAndPositionComeByMessage) {
    EXPECT_EQ(Tell(1025, 0x00050064), 0);
    EXPECT_EQ(Tell(1026, 40), 0);
    EXPECT_EQ(TheGaugeData().range, 0x00050064u);
    EXPECT_EQ(TheGaugeData().position, 40);
    EXPECT_EQ(CallsOf("Invalidate").size(), 2u);
    EXPECT_TRUE(CallsOf("DefaultAnswer").empty());
}

TEST_F(MyProgBars, Message1028GoesToTheSystem) {
    Tell(1028, 5);
    ASSERT_EQ(CallsOf("DefaultAnswer").size(), 1u);
    EXPECT_EQ(CallsOf("DefaultAnswer")[0].numbers[0], 1028);
}

TEST_F(MyProgBars, TheUsedPartIsGrayAndTheRestHasTheColorOfTheUse) {
    Set(0, 100, 40);
    // 6 pixels a digit: the bar is from 6 to 200 - 3 - 48; 6 + 40 × 143 / 100 = 63.
    EXPECT_THAT(Filled(0xD7D7D7), ElementsAre(std::pair(8, 63)));
    EXPECT_THAT(Filled(kGaugeFree), ElementsAre(std::pair(65, 147)));
    Set(0, 100, 60);
    EXPECT_THAT(Filled(kGaugeFilling), ElementsAre(std::pair(93, 147)));
    Set(0, 100, 90);
    EXPECT_THAT(Filled(kGaugeFull), ElementsAre(std::pair(136, 147)));
}

TEST_F(MyProgBars, TicksAndFrameAreDrawnInOneColor) {
    Set(0, 100, 40);
    Filled(0);
    std::vector<std::vector<std::int64_t>> lines;
    for (const auto& call : platform::PaintingCallsOf("FillColor")) {
        if (call.numbers[4] == 0xA3A3A3) lines.push_back(call.numbers);
    }
    EXPECT_THAT(lines,
                ElementsAre(ElementsAre(6, 14, 7, 17, 0xA3A3A3), ElementsAre(148, 14, 149, 17, 0xA3A3A3),
                            ElementsAre(6, 19, 149, 20, 0xA3A3A3), ElementsAre(6, 38, 149, 39, 0xA3A3A3),
                            ElementsAre(6, 19, 7, 39, 0xA3A3A3), ElementsAre(148, 19, 149, 39, 0xA3A3A3)));
}

TEST_F(MyProgBars, NegativeNumbersPaintNothing) {
    Set(0, 100, -1);
    EXPECT_THAT(Filled(0xA3A3A3), IsEmpty());
    Set(0x8000, 100, 5);
    EXPECT_THAT(Filled(0xA3A3A3), IsEmpty());
    Set(0x7FFF, 100, 0);
    EXPECT_EQ(Filled(0xA3A3A3).size(), 6u);
}

TEST_F(MyProgBars, OfTheCaption512BytesAreCopied) {
    SetCaption(std::u16string(512, u'x'), 90);
    EXPECT_EQ(std::u16string(TheGaugeData().caption).size(), 256u);
    EXPECT_EQ(TheGaugeData().captionShift, 90u);
    EXPECT_EQ(sizeof(GaugeCaption), 1028u);
}

TEST_F(MyProgBars, TheNumbersOfTheRangeAreAboveItsEnds) {
    Set(5, 100, 40);
    Tell(zeve::kMessagePaint);
    const auto& texts = platform::TheTextRecorder().texts;
    ASSERT_EQ(texts.size(), 2u);
    EXPECT_EQ(texts[0].text, u"5");
    EXPECT_EQ(texts[0].area.left, 0);
    EXPECT_EQ(texts[0].look.color, 0xA3A3A3u);
    EXPECT_EQ(texts[1].text, u"100");
    EXPECT_EQ(texts[1].area.left, 152);
}

TEST_F(MyProgBars, TheCaptionFollowsTheEnd) {
    SetCaption(u"50%s & more", 90);
    Set(0, 100, 40);
    Tell(zeve::kMessagePaint);
    EXPECT_EQ(platform::TheTextRecorder().texts.at(1).text, u"100 50%s & more");
    EXPECT_EQ(platform::TheTextRecorder().texts.at(1).area.left, 180);
}

TEST_F(MyProgBars, TheFontGoesWithThePaint) {
    Set(0, 100, 40);
    Tell(zeve::kMessagePaint);
    ASSERT_EQ(CallsOf("MakeFont").size(), 1u);
    EXPECT_TRUE(zeve::headless::State().fonts.empty());
}

TEST_F(MyProgBars, ForAScreenReaderItIsAProgressBarWithAValue) {
    platform::AccessibleRecorder& heard = platform::TheAccessibleRecorder();
    heard.Reset();
    EXPECT_EQ(Tell(platform::kMessageGetObject, platform::kObjectOfControl), 1);
    const platform::AccessibleControl& asked = **heard.objects.back();
    EXPECT_EQ(asked.AccessibleRole(), 48);
    EXPECT_EQ(asked.AccessibleState(), 0x40u);
    Set(10, 110, 52);
    EXPECT_EQ(asked.AccessibleValue(), u"42%");
    const platform::Announcement changed{gauge, platform::AccessibleChange::kValue};
    EXPECT_THAT(heard.announced, ElementsAre(changed, changed));
    Set(100, 0, 25);
    EXPECT_EQ(asked.AccessibleValue(), u"75%") << "a range that falls";
    Set(0, 100, 500);
    EXPECT_EQ(asked.AccessibleValue(), u"100%");
    Set(5, 5, 5);
    EXPECT_EQ(asked.AccessibleValue(), u"") << "no range";
    Set(0, 100, -1);
    EXPECT_EQ(asked.AccessibleValue(), u"") << "nothing is shown";
    Tell(zeve::kMessageWindowGone);
    EXPECT_EQ(*heard.objects.back(), nullptr);
    heard.Reset();
}

TEST_F(MyProgBars, NothingIsErased) {
    Recorder().calls.clear();
    EXPECT_EQ(Tell(zeve::kMessageEraseBackground), 1);
    EXPECT_TRUE(Recorder().calls.empty());
}

} // namespace
} // namespace brixen::pvn::pvn_workflow
