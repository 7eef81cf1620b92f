// Boxes that only draw a frame or a line. They are no native parents of what lies in them.
#pragma once

#include "toolkit/boxes/eve_box.h"

namespace brixen::zeve {

class CEveRadioGroup : public CEveBox {
public:
    CEveRadioGroup() { honoursReadOnly = true; }
    CEveBox* Create(CExpressionScope& attributes, CEveBox* parentBox) override;
};

class CEveCluster : public CEveBox {
public:
    void Prepare(CExpressionScope& viewAttributes, CExpressionScope& attributes) override;
    CEveBox* Create(CExpressionScope& attributes, CEveBox* parentBox) override;
};

// An etched line.
class CEveSeparator : public CEveBox {
public:
    void Prepare(CExpressionScope& viewAttributes, CExpressionScope& attributes) override;
    CEveBox* Create(CExpressionScope& attributes, CEveBox* parentBox) override;
};

} // namespace brixen::zeve
