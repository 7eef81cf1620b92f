// A frame with a title around other boxes. It is not their native parent.
#pragma once

#include "toolkit/boxes/eve_box.h"

namespace brixen::zeve {

class CEveCluster : public CEveBox {
public:
    // Raises `margin` to `gMediumSpace`.
    void Prepare(CExpressionScope& viewAttributes, CExpressionScope& attributes) override;
    CEveBox* Create(CExpressionScope& attributes, CEveBox* parentBox) override;
};

} // namespace brixen::zeve
