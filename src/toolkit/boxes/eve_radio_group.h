// A frame around radio buttons. It is not their native parent.
#pragma once

#include "toolkit/boxes/eve_box.h"

namespace brixen::zeve {

class CEveRadioGroup : public CEveBox {
public:
    CEveRadioGroup() { honoursReadOnly = true; }
    CEveBox* Create(CExpressionScope& attributes, CEveBox* parentBox) override;
};

} // namespace brixen::zeve
