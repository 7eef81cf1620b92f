#include "toolkit/layout/layout.h"

#include "toolkit/layout/view_proxy.h"

namespace brixen::zeve {

void LayOut(ViewProxy& root, bool rightToLeft) {
    Measure(root, rightToLeft && !root.alwaysL2R);
    Place(root);
}

} // namespace brixen::zeve
