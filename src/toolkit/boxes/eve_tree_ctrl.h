// A tree, of the keyword `table`. It is made empty; the host fills it by native messages.
#pragma once

#include "toolkit/boxes/eve_box.h"

namespace brixen::zeve {

class CEveTreeCtrl : public CEveBox {
public:
    void Prepare(CExpressionScope& viewAttributes, CExpressionScope& attributes) override;
    // The tree has buttons and lines unless `has_buttons` and `has_lines` say otherwise.
    CEveBox* Create(CExpressionScope& attributes, CEveBox* parentBox) override;
};

} // namespace brixen::zeve
