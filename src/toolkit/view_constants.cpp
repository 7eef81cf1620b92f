#include "toolkit/view_constants.h"

#include "toolkit/layout/view_proxy.h"
#include "view/scope/expression_scope.h"

namespace brixen::zeve {

namespace {

struct NumberConstant {
    ScopeName name;
    std::int64_t value;
};

constexpr std::int64_t kEditLinesOfATextView = 3;

constexpr NumberConstant kMetrics[] = {
    {"gMinDimension"_name, 5},
    {"gButtonHeight"_name, 22},
    {"gButtonWidth"_name, 95},
    {"gButtonPadding"_name, 15},
    {"gRadioButtonHeight"_name, 16},
    {"gRadioWidth"_name, 15},
    {"gCheckBoxHeight"_name, 16},
    {"gSliderHeight"_name, 20},
    {"gSeparatorHeight"_name, 2},
    {"gStaticTextHeight"_name, 13},
    {"gProgressBarHeight"_name, 14},
    {"gEditTextHeight"_name, 20},
    {"gPopupHeight"_name, 20},
    {"gPopupGap"_name, 4},
    {"gPopupFudge"_name, 50},
    {"gButtonPopupWidth"_name, 20},
    {"gButtonPopupHeight"_name, 20},
    {"gGap"_name, 4},
    {"gSpace"_name, 9}, // Intentional: more than gMediumSpace
    {"gMediumSpace"_name, 8},
    {"gLargeSpace"_name, 15},
    {"gTabsHeight"_name, 25},
    {"gIconHeight"_name, 32},
    {"gIconWidth"_name, 32},
};

constexpr NumberConstant kOtherNumbers[] = {
    {"slider_point_up"_name, 1},
    {"slider_point_down"_name, 2},
    {"slider_point_left"_name, 3},
    {"slider_point_right"_name, 4},
    {"builtin_icon_warning"_name, kBuiltinIconWarning},
    {"builtin_icon_alert"_name, kBuiltinIconAlert},
    {"builtin_icon_tesseralogo"_name, kBuiltinIconTesseralogo},
    {"__inited"_name, 1},
    {"__is_macintosh"_name, 0},
    {"__is_windows"_name, 1},
    {"__os_ok_button_group_h_alignment"_name, kAlignCenter},
    {"__read_only_mode"_name, 0},
    {"rtl_aware"_name, 0},
    {"read_only_aware"_name, 0},
    {"font_small"_name, kFontSmall},
    {"font_small_bold"_name, kFontSmallBold},
    {"font_small_right"_name, kFontSmallRight},
    {"font_small_bold_right"_name, kFontSmallBoldRight},
    {"font_big"_name, kFontBig},
    {"font_big_bold"_name, kFontBigBold},
    {"font_big_right"_name, kFontBigRight},
    {"font_big_bold_right"_name, kFontBigBoldRight},
    {"font_style_bold"_name, kFontStyleBold},
    {"font_style_italic"_name, kFontStyleItalic},
    {"font_style_underline"_name, kFontStyleUnderline},
    // Kept: no font has these.
    {"font_style_outline"_name, 8},
    {"font_style_shadow"_name, 16},
    {"font_style_condensed"_name, 32},
    {"font_style_extended"_name, 64},
};

constexpr std::string_view kNumberFormats[] = {
    "whole", "decimal", "fraction", "ratio", "apex_aperture", "apex_shutterspeed", "apex_brightness",
};

} // namespace

void InstallViewConstants(CExpressionScope& rootScope) {
    for (const NumberConstant& metric : kMetrics) rootScope.DefineNumber(metric.name, metric.value);
    rootScope.DefineNumber("gTextViewHeight"_name,
                           kEditLinesOfATextView * Metric(rootScope, "gEditTextHeight"_name));
    for (const NumberConstant& number : kOtherNumbers) rootScope.DefineNumber(number.name, number.value);
    for (const std::string_view format : kNumberFormats) rootScope.DefineString(format, format);
}

std::int64_t Metric(const CExpressionScope& viewAttributes, const ScopeName& name) {
    return viewAttributes.GetLongOr(name, 0);
}

} // namespace brixen::zeve
