#include "toolkit/boxes/eve_separator.h"

#include "toolkit/boxes/box_attributes.h"
#include "toolkit/boxes/control_maker.h"
#include "toolkit/control_styles.h"
#include "toolkit/platform/toolkit_platform.h"

namespace brixen::zeve {

void CEveSeparator::Prepare(CExpressionScope& viewAttributes, CExpressionScope& attributes) {
    CEveBox::Prepare(viewAttributes, attributes);
    DefineBarSize(viewAttributes, attributes, "gSeparatorHeight"_name);
}

CEveBox* CEveSeparator::Create(CExpressionScope& attributes, CEveBox* parentBox) {
    CEveBox::Create(attributes, parentBox);
    MakeControl(*this, attributes, {u"static", style::kChild | style::kStaticEtchedLine, extended::kTopMost});
    // The system makes an etched line longer than it is asked to.
    if (control != nullptr) platform::MoveTo(control, left, top, width, height);
    return this;
}

} // namespace brixen::zeve
