#include "toolkit/boxes/eve_radio_group.h"

#include "toolkit/boxes/control_maker.h"

namespace brixen::zeve {

CEveBox* CEveRadioGroup::Create(CExpressionScope& attributes, CEveBox* parentBox) {
    CEveBox::Create(attributes, parentBox);
    MakeGroupBox(*this, attributes);
    return this;
}

} // namespace brixen::zeve
