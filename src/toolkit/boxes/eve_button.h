// A push button.
#pragma once

#include "toolkit/boxes/eve_box.h"

namespace brixen::zeve {

class CEveButton : public CEveBox {
public:
    void Prepare(CExpressionScope& viewAttributes, CExpressionScope& attributes) override;
    // With `default` the button takes the focus; of several, the last one made keeps it.
    CEveBox* Create(CExpressionScope& attributes, CEveBox* parentBox) override;
    // The label: a text, or the four-character code of a scope, of at most 127 characters; the rest is cut
    // off.
    void SetValue(const EventRecord& record) override;
};

} // namespace brixen::zeve
