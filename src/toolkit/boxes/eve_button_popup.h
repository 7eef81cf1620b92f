// A popup as small as its button.
#pragma once

#include "toolkit/boxes/eve_popup.h"

namespace brixen::zeve {

class CEveButtonPopup : public CEvePopup {
public:
    void Prepare(CExpressionScope& viewAttributes, CExpressionScope& attributes) override;
    // Never honors the sub check.
    void GetValue(EventRecord& record, bool honorSubCheck) override;
};

} // namespace brixen::zeve
