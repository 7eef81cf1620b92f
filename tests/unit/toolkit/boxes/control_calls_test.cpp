// The calls of the system that making a control takes: those of the common routine and of the class itself,
// and no correction afterward.
#include "unit/toolkit/boxes/box_fixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <vector>

namespace brixen::zeve {
namespace {

using testing::ElementsAre;

struct ControlCase {
    const char* keyword;
    friend void PrintTo(const ControlCase& control, std::ostream* out) { *out << control.keyword; }
};

class ControlCallsTest : public BoxTest, public testing::WithParamInterface<ControlCase> {
protected:
    // The calls from the request for the window to the end of the making.
    std::vector<headless::Call> CallsFor(const char* keyword, CEveBox*& box) {
        MakeDialog();
        const PreparedView view = Prepare(keyword, {{"name", "Name"},
                                                    {"width", 60},
                                                    {"height", 20},
                                                    {"left", 7},
                                                    {"top", 9},
                                                    {"view_id", 12},
                                                    {"items", "One{1}"}});
        headless::State().calls.clear();
        box = &Create(view, dialog);
        std::vector<headless::Call> calls;
        for (const headless::Call& call : headless::State().calls) {
            // The control's own procedure is no call of ours.
            if (call.name != "SavedAnswer") calls.push_back(call);
        }
        return calls;
    }
};

std::vector<std::string> NamesOf(const std::vector<headless::Call>& calls) {
    std::vector<std::string> names;
    for (const headless::Call& call : calls) names.push_back(call.name);
    return names;
}

class PlainControlCallsTest : public ControlCallsTest {};

TEST_P(PlainControlCallsTest, AreThoseOfTheCommonRoutine) {
    CEveBox* box = nullptr;
    EXPECT_THAT(NamesOf(CallsFor(GetParam().keyword, box)),
                ElementsAre("MakeWindow", "TakeControlProcedure", "WindowResolution", "StockSystemFont",
                            "MakeFont", "Send", "ShowOrHide", "Enable"));
}

INSTANTIATE_TEST_SUITE_P(Keywords, PlainControlCallsTest,
                         testing::Values(ControlCase{"button"}, ControlCase{"radio"},
                                         ControlCase{"check_box"}, ControlCase{"radio_group"},
                                         ControlCase{"cluster"}, ControlCase{"static_text"},
                                         ControlCase{"picture"}, ControlCase{"icon"}));

// The system makes an etched line longer than it is asked to.
TEST_F(ControlCallsTest, ASeparatorIsPutBackIntoItsFrame) {
    CEveBox* box = nullptr;
    const std::vector<headless::Call> calls = CallsFor("separator", box);
    ASSERT_FALSE(calls.empty());
    EXPECT_EQ(calls.back().name, "MoveTo");
    EXPECT_EQ(calls.back().window, box->control);
    EXPECT_EQ(calls.back().numbers,
              (std::vector<std::int64_t>{box->left, box->top, box->width, box->height}));
}

TEST_F(ControlCallsTest, ARefusedSeparatorIsNotMoved) {
    headless::State().refuseWindow = 1;
    CEveBox* box = nullptr;
    for (const headless::Call& call : CallsFor("separator", box)) EXPECT_NE(call.name, "MoveTo");
}

class AnyControlCallsTest : public ControlCallsTest {};

TEST_P(AnyControlCallsTest, MakeTheControlWithItsFinalPositionAndText) {
    CEveBox* box = nullptr;
    const std::vector<headless::Call> calls = CallsFor(GetParam().keyword, box);
    ASSERT_FALSE(calls.empty());
    ASSERT_EQ(calls.front().name, "MakeWindow");
    const std::vector<std::int64_t>& request = calls.front().numbers; // styles, place, size, id
    const headless::Window& window = WindowOf(*box);
    EXPECT_EQ(window.frame.left, request[2]);
    EXPECT_EQ(window.frame.top, request[3]);
    EXPECT_EQ(window.frame.Width(), request[4]);
    EXPECT_EQ(window.frame.Height(), request[5]);
    EXPECT_EQ(window.text, u"Name");
    for (const headless::Call& call : calls) {
        for (const char* late : {"MoveTo", "SetText", "SetControlText", "SetStyle"})
            EXPECT_NE(call.name, late);
    }
}

INSTANTIATE_TEST_SUITE_P(
    Keywords, AnyControlCallsTest,
    testing::Values(ControlCase{"button"}, ControlCase{"radio"}, ControlCase{"check_box"},
                    ControlCase{"radio_group"}, ControlCase{"cluster"}, ControlCase{"static_text"},
                    ControlCase{"edit_text"}, ControlCase{"edit_number"}, ControlCase{"slider"},
                    ControlCase{"picture"}, ControlCase{"icon"}, ControlCase{"popup"},
                    ControlCase{"button_popup"}, ControlCase{"list_box"}, ControlCase{"scroller"},
                    ControlCase{"progress_bar"}, ControlCase{"table"}, ControlCase{"tab_group"}));

} // namespace
} // namespace brixen::zeve
