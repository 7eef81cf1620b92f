// A check box. The system moves its mark.
#pragma once

#include "toolkit/boxes/eve_radio_button.h"

namespace brixen::zeve {

class CEveCheckBox : public CEveRadioButton {
public:
    // The control is 2 pixels wider and higher than the layout says.
    CEveBox* Create(CExpressionScope& attributes, CEveBox* parentBox) override;
};

} // namespace brixen::zeve
