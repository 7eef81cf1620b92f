// Boxes that only hold a place: panes, and places that the host fills.
#pragma once

#include "toolkit/boxes/eve_box.h"

namespace brixen::zeve {

// What every keyword outside the catalogue makes. It has a native control, an empty frame, only if the view
// says `create_user_pane`.
class CEveEmpty : public CEveBox {
public:
    void Prepare(CExpressionScope& viewAttributes, CExpressionScope& attributes) override;
    CEveBox* Create(CExpressionScope& attributes, CEveBox* parentBox) override;
};

// A place without a native control; the host puts one there.
class CEveHyperlink : public CEveBox {
public:
    void RefreshText() override;
};

} // namespace brixen::zeve
