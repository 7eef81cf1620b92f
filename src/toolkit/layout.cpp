#include "toolkit/layout.h"

#include "toolkit/view_proxy.h"

namespace brixen::zeve {
namespace {

void SetDirectionBelow(ViewProxy& view, bool rtl) {
    view.rtl = rtl;
    for (const auto& child : view.children) SetDirectionBelow(*child, rtl);
}

} // namespace

void SetDirection(ViewProxy& root, bool rightToLeft) {
    SetDirectionBelow(root, rightToLeft && !root.alwaysL2R);
}

void LayOut(ViewProxy& root, bool rightToLeft) {
    SetDirection(root, rightToLeft);
    Measure(root);
    Place(root);
}

} // namespace brixen::zeve
