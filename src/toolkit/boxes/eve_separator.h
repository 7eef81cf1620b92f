// An etched horizontal line.
#pragma once

#include "toolkit/boxes/eve_box.h"

namespace brixen::zeve {

class CEveSeparator : public CEveBox {
public:
    void Prepare(CExpressionScope& viewAttributes, CExpressionScope& attributes) override;
    CEveBox* Create(CExpressionScope& attributes, CEveBox* parentBox) override;
};

} // namespace brixen::zeve
