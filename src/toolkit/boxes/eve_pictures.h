// Bitmaps and icons.
#pragma once

#include "toolkit/boxes/eve_box.h"

namespace brixen::zeve {

// An empty bitmap control; the host puts a picture into it.
class CEvePicture : public CEveBox {
public:
    CEveBox* Create(CExpressionScope& attributes, CEveBox* parentBox) override;
};

// Shows the system's icon numbered `builtin_icon`, at the size of the icon that was prepared last.
class CEveIcon : public CEveBox {
public:
    void Prepare(CExpressionScope& viewAttributes, CExpressionScope& attributes) override;
    CEveBox* Create(CExpressionScope& attributes, CEveBox* parentBox) override;
};

} // namespace brixen::zeve
