// A label.
#pragma once

#include "toolkit/boxes/eve_box.h"

namespace brixen::zeve {

class CEveStaticText : public CEveBox {
public:
    void Prepare(CExpressionScope& viewAttributes, CExpressionScope& attributes) override;
    CEveBox* Create(CExpressionScope& attributes, CEveBox* parentBox) override;
    // A text.
    void SetValue(const EventRecord& record) override;
    // The text that is shown, unless it is empty or the box is check-box aware.
    void GetValue(EventRecord& record, bool honorSubCheck) override;

protected:
    void MakeLabel(CExpressionScope& attributes);
};

} // namespace brixen::zeve
