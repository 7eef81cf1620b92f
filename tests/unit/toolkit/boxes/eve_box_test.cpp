#include "toolkit/boxes/eve_box.h"

#include "toolkit/message_numbers.h"
#include "toolkit/toolkit_state.h"
#include "unit/toolkit/boxes/box_fixture.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <iterator>

namespace brixen::zeve {
namespace {

constexpr std::uint32_t kShown = 0x10000000, kDisabled = 0x08000000;

class EveBoxTest : public BoxTest {
protected:
    static bool IsShown(const CEveBox& box) { return WindowOf(box).style & kShown; }
    static bool IsUsable(const CEveBox& box) { return !(WindowOf(box).style & kDisabled); }
};

// --- Virtual operations

// The entry of a virtual operation in the table of its class, as the compilers of this project encode it in a
// pointer to a member function.
template <class Operation>
std::uintptr_t TableEntry(Operation operation) {
    static_assert(sizeof operation == 2 * sizeof(std::uintptr_t));
    const auto words = std::bit_cast<std::array<std::uintptr_t, 2>>(operation);
    EXPECT_EQ(words[0] % sizeof(void*), 1u) << "not virtual";
    return words[0] / sizeof(void*);
}

TEST_F(EveBoxTest, VirtualOperationsHaveAFixedOrder) {
    const std::uintptr_t entries[] = {
        TableEntry(&CEveBox::Prepare),         TableEntry(&CEveBox::Create),
        TableEntry(&CEveBox::SetValue),        TableEntry(&CEveBox::SetSubCheck),
        TableEntry(&CEveBox::GetValue),        TableEntry(&CEveBox::GetSubCheck),
        TableEntry(&CEveBox::SpareOperation7), TableEntry(&CEveBox::SetVisible),
        TableEntry(&CEveBox::SetEnabled),      TableEntry(&CEveBox::EnableSubCheck),
        TableEntry(&CEveBox::DisableSubCheck), TableEntry(&CEveBox::RefreshText),
        TableEntry(&CEveBox::SpareOperation13)};
    // The destructor has two entries, 0 and 1.
    for (std::size_t i = 0; i < std::size(entries); ++i) EXPECT_EQ(entries[i], i + 2) << i;
}

TEST_F(EveBoxTest, TheSpareOperationsDoNothing) {
    CEveBox& box = Make("edit_text", {{"name", "text"}, {"check_box_aware", 1}});
    headless::State().calls.clear();
    box.SpareOperation7();
    box.SpareOperation13();
    EXPECT_TRUE(headless::State().calls.empty());
    EXPECT_TRUE(box.visible && box.enabled);
    EXPECT_EQ(box.nameText, "text");
}

// --- Binding

TEST_F(EveBoxTest, PositionsAddUpDownTheTree) {
    CEveBox& outer = Make("cluster", {{"left", 100}, {"top", 50}, {"width", 300}, {"height", 200}});
    CEveBox& inner = MakeBelow(outer, "slider", {{"left", 7}, {"top", 9}, {"width", 30}, {"height", 20}});
    EXPECT_EQ(inner.left, 107);
    EXPECT_EQ(inner.top, 59);
    EXPECT_EQ(inner.width, 30);
    EXPECT_EQ(inner.height, 20);
    EXPECT_EQ(WindowOf(inner).frame.left, 107);
    EXPECT_EQ(WindowOf(inner).frame.top, 59);
}

TEST_F(EveBoxTest, NumbersOfTheLayoutAreCutTo16Bits) {
    CEveBox& box = Make("slider", {{"left", 65536 + 5}, {"top", 32768}, {"width", 70000}, {"height", -1}});
    EXPECT_EQ(box.left, 5);
    EXPECT_EQ(box.top, -32768);
    EXPECT_EQ(box.width, 4464);
}

TEST_F(EveBoxTest, AnAddedPositionWrapsIn16Bits) {
    CEveBox& outer = Make("cluster", {{"left", 30000}});
    EXPECT_EQ(MakeBelow(outer, "slider", {{"left", 30000}}).left, -5536);
}

TEST_F(EveBoxTest, AnOffscreenTopMovesBackOnce) {
    EXPECT_EQ(Make("slider", {{"top", 10000}}).top, 10000);
    EXPECT_EQ(Make("slider", {{"top", 10001}}).top, 1);
    CEveBox& page = Make("cluster", {{"top", 10020}});
    EXPECT_EQ(page.top, 20);
    EXPECT_EQ(MakeBelow(page, "slider", {{"top", 5}}).top, 25);
    // The sum decides.
    EXPECT_EQ(MakeBelow(page, "slider", {{"top", 9980}}).top, 10000);
    EXPECT_EQ(MakeBelow(page, "slider", {{"top", 9981}}).top, 1);
}

TEST_F(EveBoxTest, ABoxHasItsNameAsKeyAndAsText) {
    Translate("$$$/a/b=Weiter");
    CEveBox& box = Make("slider", {{"name", "$$$/a/b=Go on"}});
    EXPECT_EQ(box.nameKey, "$$$/a/b=Go on");
    EXPECT_EQ(box.nameText, "Weiter");
    EXPECT_EQ(WindowOf(box).text, u"Weiter");
    EXPECT_EQ(Make("slider").nameKey, "");
}

TEST_F(EveBoxTest, PlainTextsAreShownUnchanged) {
    for (const char* text : {"OK", "$5", "a; b"}) {
        EXPECT_EQ(Make("slider", {{"name", text}}).nameText, text);
    }
    EXPECT_EQ(Make("slider", {{"name", "$$$/a/b"}}).nameText, "");
}

TEST_F(EveBoxTest, IdsComeFromTheView) {
    CEveBox& box = Make("slider", {{"view_id", 70000}});
    EXPECT_EQ(box.viewId, 4464);
    EXPECT_EQ(WindowOf(box).id, 4464);
    EXPECT_EQ(box.subViewId, gToolkit.lastViewId);
}

TEST_F(EveBoxTest, LockedDecidesWhetherReadOnlyDisables) {
    EXPECT_FALSE(Make("slider").readOnly);
    EXPECT_TRUE(Make("slider").honoursReadOnly);
    CEveBox& locked = Make("cluster", {{"locked", 1}});
    EXPECT_TRUE(locked.readOnly);
    EXPECT_TRUE(locked.honoursReadOnly);
    CEveBox& unlocked = Make("slider", {{"locked", 0}, {"__read_only_mode", 1}});
    EXPECT_TRUE(unlocked.readOnly);
    EXPECT_FALSE(unlocked.honoursReadOnly);
}

TEST_F(EveBoxTest, SixClassesHonorReadOnly) {
    for (const char* keyword : {"radio", "check_box", "radio_group", "slider", "popup", "button_popup"}) {
        EXPECT_TRUE(Prepare(keyword).box->honoursReadOnly) << keyword;
    }
    for (const char* keyword : {"dialog", "button", "hyperlink", "tab_group", "edit_text", "edit_number",
                                "cluster", "separator", "picture", "icon", "static_text", "static_text_enum",
                                "list_box", "scroller", "progress_bar", "table", "row"}) {
        EXPECT_FALSE(Prepare(keyword).box->honoursReadOnly) << keyword;
    }
}

TEST_F(EveBoxTest, ChildrenAreInTheOrderOfTheirMaking) {
    CEveBox& first = Make("slider");
    CEveBox& second = Make("slider");
    ASSERT_EQ(dialog->children.size(), 2u);
    EXPECT_EQ(dialog->children.front().get(), &first);
    EXPECT_EQ(dialog->children.back().get(), &second);
    EXPECT_EQ(first.parent, dialog);
}

constexpr const char* kEveryKeyword[] = {"dialog",      "button",       "hyperlink",    "radio",
                                         "check_box",   "radio_group",  "tab_group",    "edit_text",
                                         "edit_number", "cluster",      "slider",       "picture",
                                         "separator",   "icon",         "static_text",  "static_text_enum",
                                         "list_box",    "scroller",     "progress_bar", "table",
                                         "popup",       "button_popup", "row"};

TEST_F(EveBoxTest, PreparingAnyClassCopiesStateFontAndStyles) {
    for (const char* keyword : kEveryKeyword) {
        const PreparedView view = Prepare(keyword, {{"visible", 5},
                                                    {"enabled", 0},
                                                    {"font_size", 9},
                                                    {"font_style", 3},
                                                    {"win_style", 7},
                                                    {"win_ex_style", 8}});
        EXPECT_EQ(view.Number("visible"), 1) << keyword;
        EXPECT_EQ(view.Number("enabled"), 0) << keyword;
        EXPECT_EQ(view.Number("font_size"), 9) << keyword;
        EXPECT_EQ(view.Number("font_style"), 3) << keyword;
        EXPECT_EQ(view.Number("win_style"), 7) << keyword;
        EXPECT_EQ(view.Number("win_ex_style"), 8) << keyword;
        const PreparedView bare = Prepare(keyword);
        for (const char* name :
             {"visible", "enabled", "font_size", "font_style", "win_style", "win_ex_style"}) {
            EXPECT_FALSE(bare.attributes->HasVariable(name)) << keyword << " " << name;
        }
    }
}

TEST_F(EveBoxTest, PreparingAnyClassSetsTheLanguageOfTheFonts) {
    for (const char* keyword : kEveryKeyword) {
        Prepare(keyword, {{"__languageInfo", "ja_JP"}});
        EXPECT_EQ(gToolkit.languageInfo, "ja_JP") << keyword;
        EXPECT_EQ(gToolkit.faces.wide, u"MS UI Gothic") << keyword;
        Prepare(keyword);
        EXPECT_EQ(gToolkit.languageInfo, "") << keyword;
        EXPECT_EQ(gToolkit.faces.wide, u"Tahoma") << keyword;
    }
}

// --- The tree

TEST_F(EveBoxTest, TheTopLevelWindowIsThatOfTheNearestParent) {
    CEveBox& group = Make("cluster");
    CEveBox& box = MakeBelow(group, "slider");
    EXPECT_EQ(box.TopLevelWindow(), dialog->window);
    EXPECT_EQ(&box.Root(), dialog);
    EXPECT_EQ(&dialog->Root(), dialog);
    CEveBox loose;
    EXPECT_EQ(loose.TopLevelWindow(), nullptr);
}

TEST_F(EveBoxTest, EveryControlIsAChildOfTheTopLevelWindow) {
    CEveBox& group = Make("cluster");
    CEveBox& box = MakeBelow(group, "slider");
    EXPECT_EQ(WindowOf(box).parent, dialog->window);
}

TEST_F(EveBoxTest, FindsTheFirstBoxOfAnIdDepthFirst) {
    MakeDialog({{"view_id", 1}});
    CEveBox& group = Make("cluster", {{"view_id", 2}});
    CEveBox& deep = MakeBelow(group, "slider", {{"view_id", 3}});
    CEveBox& shallow = Make("slider", {{"view_id", 3}});
    EXPECT_EQ(dialog->FindByViewId(1), dialog);
    EXPECT_EQ(dialog->FindByViewId(3), &deep);
    EXPECT_EQ(shallow.FindByViewId(3), &shallow);
    EXPECT_EQ(dialog->FindByViewId(4), nullptr);
    EXPECT_EQ(dialog->FindByViewId(shallow.subViewId), nullptr);
}

TEST_F(EveBoxTest, RetranslateShowsEveryName) {
    CEveBox& group = Make("cluster", {{"name", "$$$/group=Group"}});
    CEveBox& box = MakeBelow(group, "button", {{"name", "$$$/button=Button"}});
    CEveBox& nameless = MakeBelow(group, "slider");
    nameless.nameText = "shown without a key";
    Translate("$$$/group=Gruppe");
    Translate("$$$/button=Knopf");
    dialog->Retranslate();
    EXPECT_EQ(group.nameText, "Gruppe");
    EXPECT_EQ(WindowOf(group).text, u"Gruppe");
    EXPECT_EQ(WindowOf(box).text, u"Knopf");
    EXPECT_EQ(WindowOf(nameless).text, u"shown without a key");
    EXPECT_EQ(headless::CallsOf("SetText").size(), 4u);
}

TEST_F(EveBoxTest, APlaceForAHyperlinkShowsNoText) {
    CEveBox& link = Make("hyperlink", {{"name", "Read more"}});
    link.RefreshText();
    EXPECT_EQ(link.control, nullptr);
}

// --- Visible and enabled

TEST_F(EveBoxTest, ABoxIsShownIfItAndAllItsParentsAreVisible) {
    CEveBox& outer = Make("cluster");
    CEveBox& inner = MakeBelow(outer, "cluster", {{"visible", 0}});
    CEveBox& box = MakeBelow(inner, "slider");
    EXPECT_TRUE(IsShown(outer));
    EXPECT_FALSE(IsShown(inner));
    EXPECT_FALSE(IsShown(box));
    EXPECT_TRUE(box.visible);

    inner.SetVisible(true);
    EXPECT_TRUE(IsShown(inner));
    EXPECT_TRUE(IsShown(box));
    outer.SetVisible(false);
    EXPECT_FALSE(IsShown(outer));
    EXPECT_FALSE(IsShown(box));
    EXPECT_TRUE(box.visible);
    box.SetVisible(true); // its grandparent is still hidden
    EXPECT_FALSE(IsShown(box));
}

TEST_F(EveBoxTest, ShowingSkipsChildrenThatAreHiddenThemselves) {
    CEveBox& group = Make("cluster");
    CEveBox& hidden = MakeBelow(group, "slider", {{"visible", 0}});
    const std::size_t calls = headless::CallsOf("ShowOrHide").size();
    group.SetVisible(false);
    group.SetVisible(true);
    EXPECT_EQ(headless::CallsOf("ShowOrHide").size(), calls + 2);
    EXPECT_FALSE(IsShown(hidden));
}

TEST_F(EveBoxTest, ABoxWithoutControlPassesItsStateOn) {
    CEveBox& row = Make("row", {{"visible", 0}, {"enabled", 0}});
    CEveBox& box = MakeBelow(row, "slider");
    EXPECT_EQ(row.control, nullptr);
    EXPECT_FALSE(IsShown(box));
    EXPECT_FALSE(IsUsable(box));
    row.SetVisible(true);
    row.SetEnabled(true);
    EXPECT_TRUE(IsShown(box));
    EXPECT_TRUE(IsUsable(box));
}

TEST_F(EveBoxTest, ABoxIsUsableIfItAndAllItsParentsAreEnabled) {
    CEveBox& outer = Make("cluster", {{"enabled", 0}});
    CEveBox& inner = MakeBelow(outer, "cluster");
    CEveBox& box = MakeBelow(inner, "button");
    EXPECT_FALSE(IsUsable(outer));
    EXPECT_FALSE(IsUsable(box));
    outer.SetEnabled(true);
    EXPECT_TRUE(IsUsable(box));
    box.SetEnabled(false);
    EXPECT_FALSE(IsUsable(box));
    inner.SetEnabled(true);
    EXPECT_FALSE(IsUsable(box)); // by its own state
}

TEST_F(EveBoxTest, EnablingSkipsChildrenThatAreDisabledThemselves) {
    CEveBox& group = Make("cluster");
    CEveBox& disabled = MakeBelow(group, "button", {{"enabled", 0}});
    CEveBox& below = MakeBelow(disabled, "button");
    const std::size_t calls = headless::CallsOf("Enable").size();
    group.SetEnabled(false);
    group.SetEnabled(true);
    EXPECT_EQ(headless::CallsOf("Enable").size(), calls + 2);
    EXPECT_FALSE(IsUsable(disabled));
    EXPECT_FALSE(IsUsable(below));
}

TEST_F(EveBoxTest, AReadOnlyBoxThatHonorsItIsDisabledWithAllBelow) {
    CEveBox& group = Make("radio_group", {{"__read_only_mode", 1}});
    CEveBox& box = MakeBelow(group, "button");
    EXPECT_FALSE(IsUsable(group));
    EXPECT_FALSE(IsUsable(box));
    EXPECT_TRUE(box.enabled);
    group.SetEnabled(true);
    EXPECT_FALSE(IsUsable(box));
    // A button does not honor it.
    EXPECT_TRUE(IsUsable(Make("button", {{"__read_only_mode", 1}})));
    EXPECT_FALSE(IsUsable(Make("slider", {{"__read_only_mode", 1}})));
}

// --- The check box in front

TEST_F(EveBoxTest, ASubCheckHasStatesOfItsOwn) {
    CEveBox& box = Make("edit_text", {{"check_box_aware", 1}});
    ASSERT_NE(box.subControl, nullptr);
    EXPECT_FALSE(box.GetSubCheck());
    box.SetSubCheck(true);
    EXPECT_TRUE(box.GetSubCheck());
    box.SetSubCheck(false);
    EXPECT_FALSE(box.GetSubCheck());

    box.DisableSubCheck();
    EXPECT_TRUE(headless::FindWindow(box.subControl)->style & kDisabled);
    box.EnableSubCheck();
    EXPECT_FALSE(headless::FindWindow(box.subControl)->style & kDisabled);
}

TEST_F(EveBoxTest, ASubCheckStaysDisabledIfTheBoxHonorsReadOnly) {
    CEveBox& box = Make("edit_text", {{"check_box_aware", 1}});
    for (const bool isReadOnly : {false, true}) {
        for (const bool honorsIt : {false, true}) {
            box.DisableSubCheck();
            box.readOnly = isReadOnly;
            box.honoursReadOnly = honorsIt;
            box.EnableSubCheck();
            const bool isDisabled = headless::FindWindow(box.subControl)->style & kDisabled;
            EXPECT_EQ(isDisabled, isReadOnly && honorsIt) << isReadOnly << honorsIt;
        }
    }
}

TEST_F(EveBoxTest, ABoxWithoutSubCheckIsUnchecked) {
    CEveBox& box = Make("slider");
    headless::State().calls.clear();
    EXPECT_FALSE(box.GetSubCheck());
    box.EnableSubCheck();
    box.DisableSubCheck();
    EXPECT_TRUE(headless::State().calls.empty());
}

TEST_F(EveBoxTest, AThirdStateIsNotChecked) {
    CEveBox& box = Make("edit_text", {{"check_box_aware", 1}});
    headless::State().answer = [](const headless::Message& message) -> std::optional<std::intptr_t> {
        if (message.number == kButtonGetCheck) return 2;
        return std::nullopt;
    };
    EXPECT_FALSE(box.GetSubCheck());
}

// --- The end

TEST_F(EveBoxTest, TheDestructorFreesIconsWindowAndFontsInThisOrder) {
    MakeDialog();
    CEveBox& icon = Make("icon", {{"builtin_icon", 32515}});
    CEveBox& button = Make("button", {{"name", "OK"}});
    const NativeWindow window = dialog->window;
    const auto iconFont = headless::HandleNumber(icon.font);
    const auto buttonFont = headless::HandleNumber(button.font);
    headless::State().calls.clear();
    generator.DeleteBoxes();

    EXPECT_EQ(headless::CallsOf("Send").front().numbers, (std::vector<std::int64_t>{371, 1, 0}));
    std::vector<std::string> order;
    for (const headless::Call& call : headless::State().calls) {
        if (call.name == "DeleteIcon") order.push_back("icon");
        if (call.name == "CloseWindow") order.push_back(call.window == window ? "window" : "control");
        if (call.name == "DeleteFont") {
            EXPECT_TRUE(call.numbers[0] == iconFont || call.numbers[0] == buttonFont);
            order.push_back("font");
        }
    }
    EXPECT_EQ(order, (std::vector<std::string>{"icon", "window", "font", "font"}));
    EXPECT_TRUE(headless::State().icons.empty());
    EXPECT_TRUE(headless::State().fonts.empty());
    EXPECT_TRUE(headless::State().windows.empty());
    dialog = nullptr;
}

TEST_F(EveBoxTest, TheDestructorFreesTheIconBeforeTheChildren) {
    CEveBox& group = Make("cluster");
    const NativeWindow parent = group.control;
    const NativeWindow child = MakeBelow(group, "icon", {{"builtin_icon", 32515}}).control;
    headless::State().calls.clear();
    generator.DeleteBoxes();
    dialog = nullptr;
    const auto asked = headless::CallsOf("Send");
    ASSERT_EQ(asked.size(), 2u);
    EXPECT_EQ(asked[0].window, parent);
    EXPECT_EQ(asked[1].window, child);
}

TEST_F(EveBoxTest, OnlyControlsWithALowStyleBitAreAskedForAnIcon) {
    CEveBox& plain = Make("static_text", {{"name", "x"}});                  // 0
    CEveBox& right = Make("static_text", {{"name", "x"}, {"font", 32002}}); // 2
    CEveBox& group = Make("cluster");                                       // 7
    CEveBox& radio = Make("radio", {{"name", "x"}});                        // 4
    const NativeWindow controls[] = {plain.control, right.control, group.control, radio.control};
    generator.DeleteBoxes();
    dialog = nullptr;
    EXPECT_EQ(TimesSent(controls[0], kStaticGetImage), 0u);
    EXPECT_EQ(TimesSent(controls[1], kStaticGetImage), 1u);
    EXPECT_EQ(TimesSent(controls[2], kStaticGetImage), 1u);
    EXPECT_EQ(TimesSent(controls[3], kStaticGetImage), 0u);
    EXPECT_TRUE(headless::CallsOf("DeleteIcon").empty());
}

TEST_F(EveBoxTest, SettingAndReadingAPlainBoxDoesNothing) {
    for (const char* keyword : {"slider", "cluster", "separator", "picture", "icon", "list_box", "scroller",
                                "progress_bar", "table", "tab_group", "radio_group", "hyperlink", "row"}) {
        CEveBox& box = Make(keyword);
        headless::State().calls.clear();
        SetText(box, "text");
        EXPECT_EQ(Value(box), "<none>") << keyword;
        EXPECT_TRUE(headless::State().calls.empty()) << keyword;
    }
}

} // namespace
} // namespace brixen::zeve
