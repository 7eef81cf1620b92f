#include "toolkit/view_constants.h"

#include "view/scope/expression_scope.h"

#include <gtest/gtest.h>

#include <map>
#include <string>

namespace brixen::zeve {
namespace {

TEST(ViewConstants, HaveTheirValuesInTheRootScope) {
    const std::map<std::string, std::int64_t> expected = {
        {"gMinDimension", 5},
        {"gButtonHeight", 22},
        {"gButtonWidth", 95},
        {"gButtonPadding", 15},
        {"gRadioButtonHeight", 16},
        {"gRadioWidth", 15},
        {"gCheckBoxHeight", 16},
        {"gSliderHeight", 20},
        {"gSeparatorHeight", 2},
        {"gStaticTextHeight", 13},
        {"gProgressBarHeight", 14},
        {"gEditTextHeight", 20},
        {"gPopupHeight", 20},
        {"gPopupGap", 4},
        {"gPopupFudge", 50},
        {"gButtonPopupWidth", 20},
        {"gButtonPopupHeight", 20},
        {"gGap", 4},
        {"gSpace", 9},
        {"gMediumSpace", 8},
        {"gLargeSpace", 15},
        {"gTextViewHeight", 60},
        {"gTabsHeight", 25},
        {"gIconHeight", 32},
        {"gIconWidth", 32},
        {"slider_point_up", 1},
        {"slider_point_down", 2},
        {"slider_point_left", 3},
        {"slider_point_right", 4},
        {"builtin_icon_warning", 32515},
        {"builtin_icon_alert", 32516},
        {"builtin_icon_tesseralogo", 103},
        {"__inited", 1},
        {"__is_macintosh", 0},
        {"__is_windows", 1},
        {"__os_ok_button_group_h_alignment", 2},
        {"__read_only_mode", 0},
        {"rtl_aware", 0},
        {"read_only_aware", 0},
        {"font_small", 32000},
        {"font_small_bold", 32001},
        {"font_small_right", 32002},
        {"font_small_bold_right", 32003},
        {"font_big", 32004},
        {"font_big_bold", 32005},
        {"font_big_right", 32006},
        {"font_big_bold_right", 32007},
        {"font_style_bold", 1},
        {"font_style_italic", 2},
        {"font_style_underline", 4},
        {"font_style_outline", 8},
        {"font_style_shadow", 16},
        {"font_style_condensed", 32},
        {"font_style_extended", 64},
    };
    CExpressionScope scope;
    InstallViewConstants(scope);
    for (const auto& [name, value] : expected) {
        std::int64_t number = kUndefinedNumber;
        EXPECT_TRUE(scope.GetLong(name, &number)) << name;
        EXPECT_EQ(number, value) << name;
    }
    constexpr std::size_t kNumberFormats = 7;
    EXPECT_EQ(scope.VariableCount(), expected.size() + kNumberFormats);
}

TEST(ViewConstants, NumberFormatsAreTextsOfTheirOwnNames) {
    CExpressionScope scope;
    InstallViewConstants(scope);
    for (const char* format :
         {"whole", "decimal", "fraction", "ratio", "apex_aperture", "apex_shutterspeed", "apex_brightness"}) {
        EXPECT_EQ(scope.GetStringOr(format, ""), format);
    }
}

TEST(ViewConstants, TheTextViewHeightFollowsTheEditHeightOnlyDuringInstallation) {
    CExpressionScope scope;
    InstallViewConstants(scope);
    scope.DefineNumber("gEditTextHeight", 30);
    EXPECT_EQ(scope.GetLongOr("gTextViewHeight", 0), 60);
    InstallViewConstants(scope);
    EXPECT_EQ(scope.GetLongOr("gTextViewHeight", 0), 60);
}

TEST(ViewConstants, AViewSeesItsOwnMetricFirst) {
    CExpressionScope root;
    InstallViewConstants(root);
    CExpressionScope view(&root);
    EXPECT_EQ(Metric(view, "gButtonWidth"), 95);
    view.DefineNumber("gButtonWidth", 40);
    EXPECT_EQ(Metric(view, "gButtonWidth"), 40);
    EXPECT_EQ(Metric(root, "gButtonWidth"), 95);
    EXPECT_EQ(Metric(root, "gNoSuchMetric"), 0);
}

} // namespace
} // namespace brixen::zeve
