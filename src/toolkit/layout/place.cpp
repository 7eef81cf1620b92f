#include "toolkit/layout/layout.h"
#include "toolkit/layout/arithmetic.h"
#include "toolkit/layout/column.h"
#include "toolkit/layout/horizontal_fit.h"
#include "toolkit/layout/row.h"
#include "toolkit/layout/view_proxy.h"

namespace brixen::zeve {
namespace {

// All children get the same frame, one over the other, far below until their boxes are made.
void PlaceOffscreen(ViewProxy& view) {
    const bool inside = view.parent && view.parent->offscreen;
    const std::int32_t distance = inside ? 0 : kOffscreenDistance;
    for (const auto& child : view.children) {
        FitHorizontally(view, *child, LabelRule::Off);
        child->top = Cut(PixelSum{view.topOutset} + view.marginTop + distance);
        child->height = Cut(PixelSum{view.height} - view.marginBottom - view.marginTop);
    }
}

void ApplyOffsets(ViewProxy& view) {
    const bool mirrored = view.IsMirrored();
    for (const auto& child : view.children) {
        const PixelSum shift = child->leftOffset;
        child->left = Cut(child->left + (mirrored ? -shift : shift));
        child->top = Cut(PixelSum{child->top} + child->topOffset);
    }
}

} // namespace

void Place(ViewProxy& view) {
    if (view.children.empty()) return;
    switch (view.placement) {
    case kPlaceRow: PlaceRow(view); break;
    case kPlaceOffscreen: PlaceOffscreen(view); break;
    default: PlaceColumn(view); break;
    }
    ApplyOffsets(view);
    for (const auto& child : view.children) Place(*child);
}

} // namespace brixen::zeve
