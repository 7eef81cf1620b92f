#include "toolkit/boxes/eve_progress_bar.h"

#include "toolkit/boxes/box_attributes.h"
#include "toolkit/boxes/control_maker.h"
#include "toolkit/control_styles.h"

namespace brixen::zeve {

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
