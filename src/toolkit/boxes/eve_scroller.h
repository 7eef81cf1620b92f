// A scroll bar. It is made without a range; the host sets one by native messages.
#pragma once

#include "toolkit/boxes/eve_box.h"

namespace brixen::zeve {

class CEveScroller : public CEveBox {
public:
    // A box that is higher than wide gets a vertical bar.
    CEveBox* Create(CExpressionScope& attributes, CEveBox* parentBox) override;
};

} // namespace brixen::zeve
