#include "toolkit/boxes/eve_button.h"

#include "toolkit/boxes/box_attributes.h"
#include "toolkit/boxes/control_maker.h"
#include "toolkit/boxes/text_measure.h"
#include "toolkit/control_styles.h"
#include "toolkit/event_record.h"
#include "toolkit/platform/toolkit_platform.h"
#include "toolkit/view_constants.h"
#include "values/unicode/character_borders.h"
#include "values/unicode/text_conversion.h"
#include "view/scope/expression_scope.h"

#include <algorithm>
#include <string_view>

namespace brixen::zeve {

namespace {

constexpr std::size_t kLabelCharacters = 127;

std::int64_t MeasuredWidth(std::int64_t textWidth, const CExpressionScope& viewAttributes) {
    return std::max(textWidth + kTextMargins, Metric(viewAttributes, "gButtonWidth"_name));
}

// Returns the first `count` whole characters of the text.
std::string_view CutToCharacters(std::string_view text, std::size_t count) {
    std::size_t characters = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (lyr::gen::BeginsCharacter(text[i]) && ++characters > count) return text.substr(0, i);
    }
    return text;
}

} // namespace

void CEveButton::Prepare(CExpressionScope& viewAttributes, CExpressionScope& attributes) {
    CEveBox::Prepare(viewAttributes, attributes);
    const platform::Extent text = MeasureName(*this, viewAttributes, 0);
    const std::int64_t given = viewAttributes.GetLongOr("width"_name, 0);
    const std::int64_t buttonWidth = given ? given : MeasuredWidth(text.width, viewAttributes);
    attributes.DefineNumber("width"_name, buttonWidth);
    attributes.DefineNumber("height"_name, std::max(viewAttributes.GetLongOr("height"_name, 0),
                                                    Metric(viewAttributes, "gButtonHeight"_name)));
    CopyBoolean(attributes, viewAttributes, "default"_name);
    CopyBoolean(attributes, viewAttributes, "rtl_aware"_name);
    if (viewAttributes.GetBooleanOr("label"_name, false)) {
        attributes.DefineNumber("label_width"_name, buttonWidth);
    }
}

CEveBox* CEveButton::Create(CExpressionScope& attributes, CEveBox* parentBox) {
    CEveBox::Create(attributes, parentBox);
    const bool isDefault = attributes.GetBooleanOr("default"_name, false);
    const bool isRightToLeft = attributes.GetBooleanOr("rtl_aware"_name, false);
    MakeControl(*this, attributes,
                {u"button", style::kChild | style::kTabStop | (isDefault ? style::kDefaultPushButton : 0),
                 extended::kTopMost | (isRightToLeft ? extended::kRightToLeftReading : 0)});
    if (isDefault) platform::Focus(control);
    return this;
}

void CEveButton::SetValue(const EventRecord& record) {
    const std::string_view label = ReadTextOrFourCharCode(record, kKeySetValue);
    platform::SetText(control, lyr::gen::ToUtf16(CutToCharacters(label, kLabelCharacters), true).c_str());
}

} // namespace brixen::zeve
