// A system icon, by its number in `builtin_icon`.
#pragma once

#include "toolkit/boxes/eve_box.h"

namespace brixen::zeve {

class CEveIcon : public CEveBox {
public:
    // Stores the size in the toolkit's state.
    void Prepare(CExpressionScope& viewAttributes, CExpressionScope& attributes) override;
    // Kept: shows the icon at the size of the icon that was prepared last.
    CEveBox* Create(CExpressionScope& attributes, CEveBox* parentBox) override;
};

} // namespace brixen::zeve
