#include "toolkit/boxes/eve_static_text.h"

#include "toolkit/boxes/box_attributes.h"
#include "toolkit/boxes/box_font.h"
#include "toolkit/boxes/control_maker.h"
#include "toolkit/boxes/text_measure.h"
#include "toolkit/control_styles.h"
#include "toolkit/event_record.h"
#include "toolkit/view_constants.h"
#include "view/scope/expression_scope.h"

#include <algorithm>

namespace brixen::zeve {

void CEveStaticText::Prepare(CExpressionScope& viewAttributes, CExpressionScope& attributes) {
    CEveBox::Prepare(viewAttributes, attributes);
    CopyBoolean(attributes, viewAttributes, "rtl_aware"_name);
    const std::int64_t givenWidth = viewAttributes.GetLongOr("width"_name, 0);
    const std::int64_t givenHeight = viewAttributes.GetLongOr("height"_name, 0);
    const platform::Extent text = MeasureName(*this, viewAttributes, givenWidth);
    const std::int64_t labelWidth = givenWidth ? givenWidth : text.width;
    const std::int64_t textHeight =
        std::max<std::int64_t>(text.height, Metric(viewAttributes, "gStaticTextHeight"_name));
    attributes.DefineNumber("width"_name, labelWidth);
    attributes.DefineNumber("height"_name, givenHeight ? givenHeight : textHeight);
    if (viewAttributes.GetBooleanOr("label"_name, false)) {
        attributes.DefineNumber("label_width"_name, labelWidth);
    }
}

CEveBox* CEveStaticText::Create(CExpressionScope& attributes, CEveBox* parentBox) {
    CEveBox::Create(attributes, parentBox);
    MakeLabel(attributes);
    return this;
}

void CEveStaticText::MakeLabel(CExpressionScope& attributes) {
    // So the text is on one line with that of the field beside it.
    top = CutTo16(top - 1);
    height = CutTo16(height + 1);
    honoursReadOnly = false;
    const bool isRight = IsRightFont(attributes.GetLongOr("font"_name, kFontBig));
    MakeControl(*this, attributes,
                {u"static", style::kChild | (isRight ? style::kStaticRight : 0),
                 FieldStyle(attributes, extended::kTopMost)});
}

void CEveStaticText::SetValue(const EventRecord& record) { SetTextById(ReadText(record, kKeySetValue)); }

void CEveStaticText::GetValue(EventRecord& record, bool) {
    if (!checkBoxAware) StoreNewText(record, TextById());
}

} // namespace brixen::zeve
