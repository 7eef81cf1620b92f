// A place for a hyperlink: no native control is made, and the host puts its own there.
#pragma once

#include "toolkit/boxes/eve_box.h"

namespace brixen::zeve {

class CEveHyperlink : public CEveBox {
public:
    CEveHyperlink() { windowsOfControl = 0; }
    // Does nothing: the host shows the text.
    void RefreshText() override {}
};

} // namespace brixen::zeve
