// A place for a hyperlink: Create makes no native control, and the host fills the place.
#pragma once

#include "toolkit/boxes/eve_box.h"

namespace brixen::zeve {

class CEveHyperlink : public CEveBox {
public:
    // Makes a static control in the place, with the name as its text, like the control of any other box. To
    // be called once, with the attributes of Create. Throws what MakeControl throws.
    void Fill(const CExpressionScope& attributes);
};

} // namespace brixen::zeve
