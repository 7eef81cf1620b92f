// A row of tabs. The host shows the pages.
#pragma once

#include "toolkit/boxes/eve_box.h"

namespace brixen::zeve {

class CEveTabGroup : public CEveBox {
public:
    void Prepare(CExpressionScope& viewAttributes, CExpressionScope& attributes) override;
    // Makes one tab for each part of the translated name between semicolons, empty parts included.
    CEveBox* Create(CExpressionScope& attributes, CEveBox* parentBox) override;
};

} // namespace brixen::zeve
