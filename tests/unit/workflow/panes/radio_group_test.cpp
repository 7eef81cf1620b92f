#include "workflow/panes/radio_group.h"

#include "unit/workflow/panes/pane_host_fixture.h"
#include "workflow/platform/message_numbers.h"

namespace brixen::pvn::pvn_workflow {
namespace {

constexpr std::uint16_t kOne = 41, kTwo = 42, kThree = 43, kAfter = 44;
constexpr std::uint16_t kIds[] = {kOne, kTwo, kThree};
constexpr std::uint32_t kVisibleTabStop = 0x50010000, kGroupBit = 0x20000, kNotifies = 0x4000;

class RadioGroupTest : public DialogFixture {
protected:
    RadioGroupTest() {
        zeve::ZeveInitRecord record;
        record.callback = [](std::int32_t, zeve::EventRecord&, void*) -> std::uint64_t { return 1; };
        dialog.reset(zeve::ZeveNew(&record));
        zeve::ZeveAddViewText(dialog.get(),
                              "dialog(name: 'x') { radio(view_id: 41, name: 'One');"
                              " radio(view_id: 42, name: 'Two'); radio(view_id: 43, name: 'Three');"
                              " button(view_id: 44, name: 'OK'); }");
        static_cast<void>(zeve::ZeveMakeDialog(dialog.get(), nullptr));
    }

    OwnedDialog dialog;
};

TEST_F(RadioGroupTest, IsAGroupForTheArrowKeysThatEndsBeforeTheNextControl) {
    JoinRadioButtons(dialog.get(), kIds);
    EXPECT_EQ(Control(kOne)->style, kVisibleTabStop | 4 | kNotifies | kGroupBit);
    EXPECT_EQ(Control(kTwo)->style, kVisibleTabStop | 4 | kNotifies);
    EXPECT_EQ(Control(kThree)->style, kVisibleTabStop | 4 | kNotifies);
    EXPECT_EQ(Control(kAfter)->style, kVisibleTabStop | kGroupBit);
}

TEST_F(RadioGroupTest, HasOneMarkWhichIsItsTabStop) {
    EXPECT_EQ(MarkedRadioButton(dialog.get(), kIds), 0);
    for (const std::uint16_t marked : {kTwo, kThree, kOne}) {
        MarkRadioButton(dialog.get(), kIds, marked);
        EXPECT_EQ(MarkedRadioButton(dialog.get(), kIds), marked);
        for (const std::uint16_t id : kIds) {
            EXPECT_EQ(Control(id)->style, id == marked ? kVisibleTabStop | 4 : 0x50000004) << id;
            EXPECT_EQ(Tell(Control(id)->handle, zeve::kButtonGetCheck), id == marked ? 1 : 0) << id;
        }
    }
}

TEST_F(RadioGroupTest, WithoutButtonsDoesNothing) {
    JoinRadioButtons(dialog.get(), {});
    MarkRadioButton(dialog.get(), {}, kOne);
    EXPECT_EQ(MarkedRadioButton(dialog.get(), {}), 0);
    EXPECT_EQ(Control(kAfter)->style, kVisibleTabStop);
}

TEST_F(RadioGroupTest, WithUnknownIdsMarksTheOthers) {
    const std::uint16_t ids[] = {kOne, 999};
    JoinRadioButtons(dialog.get(), ids);
    MarkRadioButton(dialog.get(), ids, kOne);
    EXPECT_EQ(MarkedRadioButton(dialog.get(), ids), kOne);
}

} // namespace
} // namespace brixen::pvn::pvn_workflow
