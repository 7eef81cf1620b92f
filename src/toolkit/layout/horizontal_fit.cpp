#include "toolkit/layout/horizontal_fit.h"

#include "toolkit/layout/arithmetic.h"
#include "toolkit/layout/view_proxy.h"

namespace brixen::zeve {
namespace {

// Not mirrored: what fills lies the same from either side.
void Fill(const ViewProxy& parent, ViewProxy& child, LabelRule labelRule) {
    child.width = Cut(PixelSum{parent.width} - parent.marginRight - parent.marginLeft);
    if (labelRule == LabelRule::On) child.labelWidth = Cut(PixelSum{parent.labelWidth} - parent.marginLeft);
    child.left = Cut(PixelSum{parent.leftOutset} + parent.marginLeft);
}

void Center(const ViewProxy& parent, ViewProxy& child) {
    child.left = Cut((PixelSum{parent.width} - child.width) / 2 + parent.leftOutset);
}

void LineUpLabel(const ViewProxy& parent, ViewProxy& child) {
    const PixelSum wanted = PixelSum{parent.labelWidth} - parent.marginLeft;
    child.width = Cut(child.width + wanted - child.labelWidth);
    child.labelWidth = Cut(wanted);
}

std::int32_t AfterLeftEdge(const ViewProxy& parent, const ViewProxy& child) {
    return Cut(PixelSum{child.inset} + parent.marginLeft + parent.leftOutset);
}

void AlignLeft(const ViewProxy& parent, ViewProxy& child, LabelRule labelRule) {
    if (labelRule == LabelRule::On && child.hasLabel) LineUpLabel(parent, child);
    child.left = parent.IsMirrored()
                     ? Cut(PixelSum{parent.leftOutset} - child.width - parent.marginLeft + parent.width)
                     : AfterLeftEdge(parent, child);
}

// The margin at the right is taken to be `marginLeft`: meant, views rely on it.
void AlignRight(const ViewProxy& parent, ViewProxy& child) {
    child.left = parent.IsMirrored()
                     ? AfterLeftEdge(parent, child)
                     : Cut(PixelSum{parent.width} - child.width - parent.marginLeft - parent.leftOutset);
}

} // namespace

void FitHorizontally(const ViewProxy& parent, ViewProxy& child, LabelRule labelRule) {
    switch (child.horizontal) {
    case kAlignFill: Fill(parent, child, labelRule); break;
    case kAlignCenter:
    case kAlignProportional: Center(parent, child); break; // proportional is no more than centerd here: meant
    case kAlignNone:
    case kAlignLeft: AlignLeft(parent, child, labelRule); break;
    case kAlignRight: AlignRight(parent, child); break;
    default: break;
    }
}

} // namespace brixen::zeve
