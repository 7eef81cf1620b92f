// A push button, with a label.
#pragma once

#include "toolkit/boxes/eve_box.h"

namespace brixen::zeve {

class CEveButton : public CEveBox {
public:
    void Prepare(CExpressionScope& viewAttributes, CExpressionScope& attributes) override;
    // A `default` button takes the focus; of several, the one made last has it.
    CEveBox* Create(CExpressionScope& attributes, CEveBox* parentBox) override;
    // Takes the label, a text or the four-character code of a scope, and cuts it after 127 characters.
    void SetValue(const EventRecord& record) override;
};

} // namespace brixen::zeve
