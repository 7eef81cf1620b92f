#include "toolkit/boxes/eve_scroller.h"

#include "toolkit/boxes/control_maker.h"
#include "toolkit/control_styles.h"

namespace brixen::zeve {

CEveBox* CEveScroller::Create(CExpressionScope& attributes, CEveBox* parentBox) {
    CEveBox::Create(attributes, parentBox);
    MakeControl(*this, attributes,
                {u"scrollbar", style::kChild | (height > width ? style::kUpright : 0), extended::kTopMost});
    return this;
}

} // namespace brixen::zeve
