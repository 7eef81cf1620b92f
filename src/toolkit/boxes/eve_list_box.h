// A list box. It is made empty; the host fills it by native messages.
#pragma once

#include "toolkit/boxes/eve_box.h"

namespace brixen::zeve {

class CEveListBox : public CEveBox {
public:
    // The control is 14 pixels higher than the layout says.
    CEveBox* Create(CExpressionScope& attributes, CEveBox* parentBox) override;
};

} // namespace brixen::zeve
