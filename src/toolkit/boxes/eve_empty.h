// A pane: a box that only holds a place for others. Every keyword without a class of its own makes one.
#pragma once

#include "toolkit/boxes/eve_box.h"

namespace brixen::zeve {

// Has a native control, an empty frame, only if the view says `create_user_pane`.
class CEveEmpty : public CEveBox {
public:
    void Prepare(CExpressionScope& viewAttributes, CExpressionScope& attributes) override;
    CEveBox* Create(CExpressionScope& attributes, CEveBox* parentBox) override;
};

} // namespace brixen::zeve
