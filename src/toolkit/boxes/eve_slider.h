// A slider. It is made without a range; the host sets one by native messages.
#pragma once

#include "toolkit/boxes/eve_box.h"

namespace brixen::zeve {

class CEveSlider : public CEveBox {
public:
    CEveSlider() { honoursReadOnly = true; }
    void Prepare(CExpressionScope& viewAttributes, CExpressionScope& attributes) override;
    CEveBox* Create(CExpressionScope& attributes, CEveBox* parentBox) override;
};

} // namespace brixen::zeve
