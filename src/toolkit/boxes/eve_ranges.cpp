#include "toolkit/boxes/eve_ranges.h"

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

CEveBox* CEveScroller::Create(CExpressionScope& attributes, CEveBox* parentBox) {
    CEveBox::Create(attributes, parentBox);
    MakeControl(*this, attributes,
                {u"scrollbar", style::kChild | (height > width ? style::kUpright : 0), extended::kTopMost});
    return this;
}

void CEveProgressBar::Prepare(CExpressionScope& viewAttributes, CExpressionScope& attributes) {
    CEveBox::Prepare(viewAttributes, attributes);
    DefineBarSize(viewAttributes, attributes, "gProgressBarHeight"_name);
}

CEveBox* CEveProgressBar::Create(CExpressionScope& attributes, CEveBox* parentBox) {
    CEveBox::Create(attributes, parentBox);
    MakeControl(*this, attributes, {u"msctls_progress32", style::kChild, extended::kTopMost});
    return this;
}

} // namespace brixen::zeve
