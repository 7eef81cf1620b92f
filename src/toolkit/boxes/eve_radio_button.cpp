#include "toolkit/boxes/eve_radio_button.h"

#include "toolkit/boxes/box_attributes.h"
#include "toolkit/boxes/text_measure.h"
#include "toolkit/control_styles.h"
#include "toolkit/event_record.h"
#include "toolkit/message_numbers.h"
#include "toolkit/platform/toolkit_platform.h"
#include "toolkit/view_constants.h"
#include "view/scope/expression_scope.h"

#include <algorithm>

namespace brixen::zeve {

void CEveRadioButton::Prepare(CExpressionScope& viewAttributes, CExpressionScope& attributes) {
    CEveBox::Prepare(viewAttributes, attributes);
    std::int64_t labelWidth = viewAttributes.GetLongOr("width"_name, 0);
    if (labelWidth == 0) {
        labelWidth = std::max<std::int64_t>(MeasureName(*this, viewAttributes, 0).width,
                                            Metric(viewAttributes, "gRadioWidth"_name));
    }
    attributes.DefineNumber("width"_name, labelWidth + Metric(viewAttributes, "gButtonPadding"_name));
    DefineSizeOr(viewAttributes, attributes, "height"_name, "gRadioButtonHeight"_name);
    CopyBoolean(attributes, viewAttributes, "initial_value"_name);
}

CEveBox* CEveRadioButton::Create(CExpressionScope& attributes, CEveBox* parentBox) {
    CEveBox::Create(attributes, parentBox);
    MakeMarkControl(attributes,
                    {u"button", style::kChild | style::kTabStop | style::kRadioButton, extended::kTopMost});
    return this;
}

void CEveRadioButton::MakeMarkControl(const CExpressionScope& attributes, const ControlKind& kind) {
    MakeControlWithSubCheck(*this, attributes, kind, WantsSubCheck(*this));
    if (attributes.GetBooleanOr("initial_value"_name, false)) {
        platform::Send(control, kButtonSetCheck, kChecked, 0);
    }
}

void CEveRadioButton::SetValue(const EventRecord& record) {
    platform::Send(control, kButtonSetCheck, ReadNumber(record, kKeySetValue) ? kChecked : 0, 0);
}

void CEveRadioButton::GetValue(EventRecord& record, bool honorSubCheck) {
    if (honorSubCheck && !GetSubCheck()) return;
    record.Store(kKeyValueBoolean, platform::Send(control, kButtonGetCheck, 0, 0) == kChecked);
}

} // namespace brixen::zeve
