// The attributes that boxes write into their nodes before the layout.
#include "toolkit/toolkit_state.h"
#include "unit/toolkit/boxes/box_fixture.h"

#include <gtest/gtest.h>

namespace brixen::zeve {
namespace {

constexpr std::int64_t kNone = kUndefinedNumber;

struct SizeCase {
    const char* keyword;
    Attributes attributes;
    std::int64_t width, height;
};

// Texts are 6 pixels a character wide, and 13 high.
const SizeCase kCases[] = {
    // A measured width below the metric is raised; a given one is kept.
    {"button", {{"name", "OK"}}, 95, 22},
    {"button", {{"name", "12345678901234567890"}}, 140, 22},
    {"button", {{"name", "OK"}, {"width", 30}, {"height", 10}}, 30, 22},
    {"button", {{"name", "OK"}, {"width", 200}, {"height", 40}}, 200, 40},
    {"button", {{"name", "OK"}, {"gButtonWidth", 20}, {"gButtonHeight", 5}}, 32, 5},
    {"radio", {{"name", "Red"}}, 33, 16},
    {"radio", {{"name", "R"}}, 30, 16}, // raised to 15
    {"radio", {{"name", "Red"}, {"width", 40}}, 55, 16},
    {"radio", {{"name", "Red"}, {"height", 5}}, 33, 5},
    {"radio", {{"name", "R"}, {"gRadioWidth", 40}, {"gButtonPadding", 1}, {"gRadioButtonHeight", 9}}, 41, 9},
    // A check box goes by the radio button's height.
    {"check_box", {{"name", "Red"}, {"gCheckBoxHeight", 99}}, 33, 16},
    {"edit_text", {{"name", "abc"}}, 38, 20},
    {"edit_text", {}, 20, 20},
    {"edit_text", {{"width", 7}, {"height", 60}}, 7, 60},
    {"edit_number", {{"name", "abc"}}, 38, 20},
    {"slider", {}, 0, 20},
    {"slider", {{"width", 100}, {"height", 5}}, 100, 20},
    {"slider", {{"width", 100}, {"height", 50}}, 100, 50},
    {"separator", {{"width", 100}}, 100, 2},
    {"separator", {{"height", 5}}, 0, 5},
    {"progress_bar", {{"width", 100}, {"height", 3}}, 100, 14},
    {"progress_bar", {{"height", 30}}, 0, 30},
    {"icon", {}, 32, 32},
    {"icon", {{"width", 16}, {"height", 48}}, 16, 48},
    {"static_text", {{"name", "Name:"}}, 30, 13},
    {"static_text", {{"name", "Name:"}, {"gStaticTextHeight", 20}}, 30, 20},
    {"static_text", {{"name", "Name:"}, {"width", 12}}, 12, 39},
    {"static_text", {{"name", "Name:"}, {"width", 12}, {"height", 5}}, 12, 5},
    {"static_text", {}, 0, 13},
    {"static_text_enum", {{"name", "Name:"}, {"items", "a{1}"}}, 30, 13},
    {"popup", {{"items", "One{1};Seven{7};"}}, 68, 20},
    {"popup", {{"items", "One{1}"}, {"width", 50}, {"height", 33}}, 50, 33},
    {"popup", {}, 20, 20},
    {"button_popup", {{"items", "One{1};Seven{7};"}}, 20, 20},
    {"button_popup", {{"width", 50}, {"height", 33}}, 50, 33},
    {"tab_group", {}, 0, 25},
    {"tab_group", {{"width", 50}, {"height", 33}}, 50, 33},
    // The other metrics are a view's own as well.
    {"edit_text", {{"gEditTextHeight", 7}}, 20, 7},
    {"slider", {{"gSliderHeight", 7}}, 0, 7},
    {"separator", {{"gSeparatorHeight", 7}}, 0, 7},
    {"progress_bar", {{"gProgressBarHeight", 7}}, 0, 7},
    {"icon", {{"gIconWidth", 7}, {"gIconHeight", 8}}, 7, 8},
    {"popup", {{"gPopupHeight", 7}}, 20, 7},
    {"button_popup", {{"gButtonPopupWidth", 7}, {"gButtonPopupHeight", 8}, {"gPopupHeight", 9}}, 7, 8},
    {"tab_group", {{"gTabsHeight", 7}}, 0, 7},
    // Only 0 counts as not given.
    {"button", {{"name", "OK"}, {"width", -5}, {"height", -6}}, -5, 22},
    {"radio", {{"name", "Red"}, {"width", -5}, {"height", -6}}, 10, -6},
    {"edit_text", {{"name", "abc"}, {"width", -5}, {"height", -6}}, -5, -6},
    {"slider", {{"width", -5}, {"height", -6}}, -5, 20},
    {"icon", {{"width", -5}, {"height", -6}}, -5, -6},
    {"static_text", {{"name", "abc"}, {"width", -5}}, -5, 39},
    {"static_text", {{"name", "abc"}, {"height", -6}}, 18, -6},
    {"popup", {{"items", "One{1}"}, {"width", -5}, {"height", -6}}, -5, -6},
    {"button_popup", {{"width", -5}, {"height", -6}}, -5, -6},
    {"tab_group", {{"width", -5}, {"height", -6}}, -5, -6},
};

class BoxSizesTest : public BoxTest {};

TEST_F(BoxSizesTest, EveryClassHasItsOwnRule) {
    for (const SizeCase& test : kCases) {
        const PreparedView view = Prepare(test.keyword, test.attributes);
        EXPECT_EQ(view.Number("width"), test.width) << test.keyword << " " << (&test - kCases);
        EXPECT_EQ(view.Number("height"), test.height) << test.keyword << " " << (&test - kCases);
    }
}

TEST_F(BoxSizesTest, TheOtherClassesDefineNoSize) {
    for (const char* keyword : {"radio_group", "picture", "list_box", "scroller", "hyperlink", "table",
                                "cluster", "dialog", "row"}) {
        EXPECT_EQ(Prepare(keyword).Number("width"), kNone) << keyword;
        EXPECT_EQ(Prepare(keyword).Number("height"), kNone) << keyword;
        EXPECT_TRUE(headless::CallsOf("MeasureText").empty()) << keyword;
    }
}

TEST_F(BoxSizesTest, AButtonIsWiderThanItsMetricOnlyForALongText) {
    // 75 plus 20 is 95; with the metric one lower, the text decides.
    rootScope.DefineNumber("gButtonWidth", 92);
    EXPECT_EQ(Prepare("button", {{"name", "123456789012"}}).Number("width"), 92); // 72 + 20
    rootScope.DefineNumber("gButtonWidth", 91);
    EXPECT_EQ(Prepare("button", {{"name", "123456789012"}}).Number("width"), 92);
}

TEST_F(BoxSizesTest, ALabelDefinesTheWidthOfItsColumn) {
    EXPECT_EQ(Prepare("button", {{"name", "OK"}, {"label", 1}}).Number("label_width"), 95);
    EXPECT_EQ(Prepare("static_text", {{"name", "Name:"}, {"label", 1}}).Number("label_width"), 30);
    EXPECT_EQ(Prepare("static_text", {{"width", 44}, {"label", 1}}).Number("label_width"), 44);
    EXPECT_EQ(Prepare("static_text", {{"name", "Name:"}}).Number("label_width"), kNone);
    EXPECT_EQ(Prepare("edit_text", {{"name", "Name:"}, {"label", 1}}).Number("label_width"), kNone);
}

TEST_F(BoxSizesTest, ADialogHasAMarginOfItsOwn) {
    EXPECT_EQ(Prepare("dialog").Number("margin"), 8);
    EXPECT_EQ(Prepare("dialog", {{"margin", 0}}).Number("margin"), 8);
    EXPECT_EQ(Prepare("dialog", {{"margin", 3}}).Number("margin"), 3);
    EXPECT_EQ(Prepare("dialog", {{"margin", -3}}).Number("margin"), -3);
    EXPECT_EQ(Prepare("dialog", {{"gMediumSpace", 12}}).Number("margin"), 12);
}

TEST_F(BoxSizesTest, AClusterHasAtLeastTheMediumMargin) {
    EXPECT_EQ(Prepare("cluster").Number("margin"), 8);
    EXPECT_EQ(Prepare("cluster", {{"margin", 3}}).Number("margin"), 8);
    EXPECT_EQ(Prepare("cluster", {{"margin", -3}}).Number("margin"), 8);
    EXPECT_EQ(Prepare("cluster", {{"margin", 9}}).Number("margin"), 9);
}

TEST_F(BoxSizesTest, ADialogCopiesTheAttributesThatTheViewHas) {
    const std::vector<std::string> booleans = {"create_system_dialog", "close_box",        "title_bar",
                                               "resizeable",           "size_box",         "zoomable",
                                               "targetable",           "get_select_click", "hide_on_suspend",
                                               "delay_select",         "erase_on_update",  "minimize_box",
                                               "maximize_box"};
    const std::vector<std::string> numbers = {"__parent", "__app", "__params", "__parentWindow",
                                              "__zeveInternalObj"};
    Attributes attributes;
    for (const std::string& name : booleans) attributes.emplace_back(name, 7);
    for (const std::string& name : numbers) attributes.emplace_back(name, 7);
    const PreparedView full = Prepare("dialog", attributes);
    const PreparedView bare = Prepare("dialog");
    for (const std::string& name : booleans) {
        EXPECT_EQ(full.Number(name), 1) << name;
        EXPECT_FALSE(bare.attributes->HasVariable(name)) << name;
    }
    for (const std::string& name : numbers) EXPECT_EQ(full.Number(name), 7) << name;
}

TEST_F(BoxSizesTest, EveryClassCopiesTheAttributesThatItReadsLater) {
    const std::pair<const char*, std::vector<const char*>> copied[] = {
        {"row", {"create_user_pane"}},
        {"button", {"default", "rtl_aware"}},
        {"radio", {"initial_value"}},
        {"check_box", {"initial_value"}},
        {"edit_text", {"v_scroller", "password", "locked", "rtl_aware", "max_chars"}},
        {"icon", {"builtin_icon"}},
        {"static_text", {"rtl_aware"}},
        {"popup", {"max_visible_items", "rtl_aware"}},
        {"table", {"has_buttons", "has_lines", "rtl_aware"}},
    };
    for (const auto& [keyword, names] : copied) {
        for (const char* name : names) {
            EXPECT_EQ(Prepare(keyword, {{name, 1}}).Number(name), 1) << keyword << " " << name;
        }
    }
    for (const char* keyword : {"popup", "button_popup", "static_text_enum"}) {
        EXPECT_EQ(Prepare(keyword, {{"items", "a{1}"}}).attributes->GetStringOr("items", ""), "a{1}")
            << keyword;
    }
}

TEST_F(BoxSizesTest, AnEnumClearsTheNameAfterMeasuring) {
    EXPECT_EQ(Prepare("static_text", {{"name", "Name:"}}).box->nameText, "Name:");
    EXPECT_EQ(Prepare("static_text_enum", {{"name", "Name:"}}).box->nameText, "");
}

TEST_F(BoxSizesTest, APopupHasTheExtentOfItsTextAsWidth) {
    EXPECT_EQ(Prepare("popup", {{"items", "One{1};Seven{7};"}}).box->width, 48);
}

TEST_F(BoxSizesTest, APopupMeasuresTheTranslatedList) {
    Translate("$$$/items=Eins{1};Siebenundzwanzig{27};");
    EXPECT_EQ(Prepare("popup", {{"items", "$$$/items=One{1}"}}).Number("width"), 20 * 6 + 20);
}

TEST_F(BoxSizesTest, TheIconPreparedLastIsRemembered) {
    Prepare("icon", {{"width", 16}});
    EXPECT_EQ(gToolkit.icon.width, 16);
    EXPECT_EQ(gToolkit.icon.height, 32);
}

TEST_F(BoxSizesTest, AFieldWithAWidthMeasuresNothing) {
    Prepare("edit_text", {{"name", "abc"}, {"width", 50}});
    Prepare("radio", {{"name", "abc"}, {"width", 50}});
    Prepare("popup", {{"items", "a{1}"}, {"width", 50}});
    EXPECT_TRUE(headless::CallsOf("MeasureText").empty());
    Prepare("button", {{"name", "abc"}, {"width", 50}}); // measures all the same
    EXPECT_EQ(headless::CallsOf("MeasureText").size(), 1u);
}

} // namespace
} // namespace brixen::zeve
