#include "toolkit/boxes/eve_slider.h"

#include "toolkit/boxes/box_attributes.h"
#include "toolkit/boxes/control_maker.h"
#include "toolkit/control_styles.h"

namespace brixen::zeve {

void CEveSlider::Prepare(CExpressionScope& viewAttributes, CExpressionScope& attributes) {
    CEveBox::Prepare(viewAttributes, attributes);
    DefineBarSize(viewAttributes, attributes, "gSliderHeight"_name);
}

CEveBox* CEveSlider::Create(CExpressionScope& attributes, CEveBox* parentBox) {
    CEveBox::Create(attributes, parentBox);
    MakeControl(*this, attributes,
                {u"msctls_trackbar32", style::kChild | style::kSliderTicks, extended::kTopMost});
    return this;
}

} // namespace brixen::zeve
