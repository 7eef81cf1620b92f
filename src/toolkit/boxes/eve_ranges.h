// Boxes with a range: made empty, the host gives them their range by native messages.
#pragma once

#include "toolkit/boxes/eve_box.h"

namespace brixen::zeve {

class CEveSlider : public CEveBox {
public:
    CEveSlider() { honoursReadOnly = true; }
    void Prepare(CExpressionScope& viewAttributes, CExpressionScope& attributes) override;
    CEveBox* Create(CExpressionScope& attributes, CEveBox* parentBox) override;
};

// Stands upright if it is higher than wide.
class CEveScroller : public CEveBox {
public:
    CEveBox* Create(CExpressionScope& attributes, CEveBox* parentBox) override;
};

class CEveProgressBar : public CEveBox {
public:
    void Prepare(CExpressionScope& viewAttributes, CExpressionScope& attributes) override;
    CEveBox* Create(CExpressionScope& attributes, CEveBox* parentBox) override;
};

} // namespace brixen::zeve
