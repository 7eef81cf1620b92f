// Lists and trees: made empty, the host fills them by native messages.
#pragma once

#include "toolkit/boxes/eve_box.h"

namespace brixen::zeve {

class CEveListBox : public CEveBox {
public:
    CEveBox* Create(CExpressionScope& attributes, CEveBox* parentBox) override;
};

// Keyword `table`. Buttons and lines unless `has_buttons` and `has_lines` say otherwise.
class CEveTreeCtrl : public CEveBox {
public:
    void Prepare(CExpressionScope& viewAttributes, CExpressionScope& attributes) override;
    CEveBox* Create(CExpressionScope& attributes, CEveBox* parentBox) override;
};

} // namespace brixen::zeve
