// An empty bitmap control; the host puts a picture into it.
#pragma once

#include "toolkit/boxes/eve_box.h"

namespace brixen::zeve {

class CEvePicture : public CEveBox {
public:
    CEveBox* Create(CExpressionScope& attributes, CEveBox* parentBox) override;
};

} // namespace brixen::zeve
