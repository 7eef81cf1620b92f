#include "toolkit/boxes/eve_dialog.h"

#include "toolkit/message_numbers.h"
#include "toolkit/toolkit_state.h"
#include "unit/toolkit/boxes/box_fixture.h"

#include <gtest/gtest.h>

namespace brixen::zeve {
namespace {

class EveDialogTest : public BoxTest {
protected:
    static std::int64_t StyleAsked() { return headless::CallsOf("MakeWindow").back().numbers[1]; }
    static std::int64_t ExtendedStyleAsked() { return headless::CallsOf("MakeWindow").back().numbers[0]; }
};

TEST_F(EveDialogTest, HasACaptionAndNoCloseBoxByDefault) {
    MakeDialog({{"name", "Title"}});
    EXPECT_EQ(StyleAsked(), 0x84C00000);
    EXPECT_EQ(ExtendedStyleAsked(), 0x101);
    EXPECT_EQ(WindowOf(*dialog).className, u"#32770");
    EXPECT_EQ(WindowOf(*dialog).text, u"Title");
    EXPECT_EQ(WindowOf(*dialog).id, 0);
    EXPECT_EQ(dialog->window, dialog->control);
}

TEST_F(EveDialogTest, ItsAttributesAddStyles) {
    MakeDialog({{"title_bar", 0}});
    EXPECT_EQ(StyleAsked(), 0x84400000);
    MakeDialog({{"close_box", 1}});
    EXPECT_EQ(StyleAsked(), 0x84C80000);
    MakeDialog({{"enabled", 0}});
    EXPECT_EQ(StyleAsked(), 0x8CC00000);
    MakeDialog({{"win_style", std::int64_t{0x80000000}}, {"win_ex_style", 0}});
    EXPECT_EQ(StyleAsked(), 0x80C00000);
    EXPECT_EQ(ExtendedStyleAsked(), 0);
}

TEST_F(EveDialogTest, IsInTheMiddleAndGrowsToItsClientArea) {
    MakeDialog({{"width", 300}, {"height", 200}});
    const headless::Call made = headless::CallsOf("MakeWindow").back();
    EXPECT_EQ(made.numbers[2], (1024 - 300) / 2);
    EXPECT_EQ(made.numbers[3], (740 - 200) / 2);
    EXPECT_EQ(made.numbers[4], 300);
    EXPECT_EQ(made.numbers[5], 200);
    const platform::Rectangle client = platform::ClientArea(dialog->window);
    EXPECT_EQ(client.Width(), 300);
    EXPECT_EQ(client.Height(), 200);
}

TEST_F(EveDialogTest, ItsPositionMovesItFromTheMiddle) {
    MakeDialog({{"width", 300}, {"height", 200}, {"left", 7}, {"top", -11}});
    // The frame is 3 pixels wide on three sides and 22 above.
    EXPECT_EQ(headless::CallsOf("MoveTo").back().numbers,
              (std::vector<std::int64_t>{7 + 362, -11 + 270, 300 + 6, 200 + 25}));
}

TEST_F(EveDialogTest, IsMadeHiddenByTheseCalls) {
    const PreparedView view = Prepare("dialog");
    headless::State().calls.clear();
    Create(view, nullptr);
    std::vector<std::string> names;
    for (const headless::Call& call : headless::State().calls) names.push_back(call.name);
    EXPECT_EQ(names, (std::vector<std::string>{"WorkArea", "IsWindowAlive", "MakeWindow",
                                               "TakeDialogProcedure", "Send", "DefaultAnswer", "OuterFrame",
                                               "ClientArea", "MoveTo", "TrimSystemMenu"}));
    const headless::Call sent = headless::CallsOf("Send").back();
    EXPECT_EQ(sent.numbers, (std::vector<std::int64_t>{kMessageChangeUiState, 0x20003, 0}));
    EXPECT_EQ(view.box->font, nullptr);
}

TEST_F(EveDialogTest, AnInvalidParentMeansNoParent) {
    MakeDialog({{"__parentWindow", 12345}});
    EXPECT_EQ(WindowOf(*dialog).parent, nullptr);
    const std::int64_t owner = ReferenceNumber(dialog->window);
    MakeDialog({{"__parentWindow", owner}});
    EXPECT_EQ(ReferenceNumber(WindowOf(*dialog).parent), owner);
}

TEST_F(EveDialogTest, ItsOwnWindowClassIsUnregisteredAfterTheWindow) {
    MakeDialog({{"create_system_dialog", 0}});
    const std::u16string name = WindowOf(*dialog).className;
    EXPECT_NE(name, u"#32770");
    EXPECT_EQ(gToolkit.dialogClassName, name);
    EXPECT_EQ(headless::State().classes.count(name), 1u);
    headless::State().calls.clear();
    generator.DeleteBoxes();
    dialog = nullptr;
    EXPECT_TRUE(headless::State().classes.empty());
    std::vector<std::string> order;
    for (const headless::Call& call : headless::State().calls) {
        if (call.name == "CloseWindow" || call.name == "UnregisterDialogClass") order.push_back(call.name);
    }
    EXPECT_EQ(order, (std::vector<std::string>{"CloseWindow", "UnregisterDialogClass"}));
}

TEST_F(EveDialogTest, EachOwnWindowClassHasANewName) {
    MakeDialog({{"create_system_dialog", 0}});
    const std::u16string first = WindowOf(*dialog).className;
    MakeDialog({{"create_system_dialog", 0}, {"__hInstance", 0x4711}});
    const std::u16string second = WindowOf(*dialog).className;
    EXPECT_NE(first, second);
    EXPECT_EQ(gToolkit.dialogClassName, second) << "the last one made";
    EXPECT_EQ(headless::CallsOf("RegisterDialogClass").back().numbers, std::vector<std::int64_t>{0x4711});
    generator.DeleteBoxes();
    dialog = nullptr;
    EXPECT_TRUE(headless::State().classes.empty());
}

TEST_F(EveDialogTest, ARefusedWindowLeavesAWorkingBox) {
    headless::State().refuseWindow = 1;
    MakeDialog();
    EXPECT_EQ(dialog->window, nullptr);
    CEveBox& button = MakeBelow(*dialog, "button", {{"name", "OK"}});
    EXPECT_EQ(button.TopLevelWindow(), nullptr);
}

} // namespace
} // namespace brixen::zeve
