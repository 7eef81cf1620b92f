#include "toolkit/layout/layout.h"
#include "toolkit/layout/pixel_sum.h"
#include "toolkit/layout/view_proxy.h"

#include <algorithm>
#include <cstdint>

namespace brixen::zeve {
namespace {

void AbsorbSideOutsets(ViewProxy& view, const ViewProxy& child) {
    Raise(view.leftOutset, PixelSum{child.leftOutset} - view.marginLeft);
    Raise(view.rightOutset, PixelSum{child.rightOutset} - view.marginRight);
}

void AbsorbTopAndBottomOutsets(ViewProxy& view, const ViewProxy& first, const ViewProxy& last) {
    Raise(view.topOutset, PixelSum{first.topOutset} - view.marginTop);
    Raise(view.bottomOutset, PixelSum{last.bottomOutset} - view.marginBottom);
}

bool SharesLabelColumn(const ViewProxy& child) {
    return child.horizontal == kAlignNone || child.horizontal == kAlignFill || child.horizontal == kAlignLeft;
}

// The widths of the children of a column. Those with labels share one edge.
struct ColumnWidths {
    PixelSum labels = 0, rest = 0, plain = 0;

    void Add(ViewProxy& column, const ViewProxy& child) {
        if (!SharesLabelColumn(child)) {
            plain = std::max<PixelSum>(plain, child.width); // the inset moves a child at the left alone
        } else if (child.hasLabel) {
            column.hasLabel = true;
            labels = std::max<PixelSum>(labels, child.labelWidth);
            rest = std::max(rest, PixelSum{child.width} - child.labelWidth);
        } else {
            plain = std::max(plain, PixelSum{child.width} + child.inset);
        }
    }
    PixelSum Content() const { return std::max(labels + rest, plain); }
};

void MeasureColumn(ViewProxy& view) {
    AbsorbTopAndBottomOutsets(view, view.children.Front(), view.children.Back());
    ColumnWidths widths;
    PixelSum heights = 0;
    for (const ViewProxy& child : view.children) {
        AbsorbSideOutsets(view, child);
        widths.Add(view, child);
        heights += child.height;
    }
    view.childHeightSum = Cut(heights);
    if (view.hasLabel) Raise(view.labelWidth, widths.labels + view.marginLeft);
    Raise(view.height, heights + view.marginTop + view.marginBottom + view.Gaps());
    Raise(view.width, widths.Content() + view.marginLeft + view.marginRight);
}

// Kept: a row subtracts its own outset from the outset of the child at its end, unlike a column; views rely
// on it.
void RaiseRowOutset(std::int32_t& outset, std::int32_t childOutset, std::int32_t margin) {
    Raise(outset, std::max<PixelSum>(PixelSum{childOutset} - margin, 0) - outset);
}

void MeasureRow(ViewProxy& view) {
    const ViewProxy& first = view.children.Front();
    RaiseRowOutset(view.leftOutset, first.leftOutset, view.marginLeft);
    RaiseRowOutset(view.rightOutset, view.children.Back().rightOutset, view.marginRight);
    if (first.JoinsLabelColumn()) {
        view.hasLabel = true;
        view.labelWidth = Cut(PixelSum{first.labelWidth} + view.leftOutset + view.marginLeft);
    }
    PixelSum widths = 0, below = 0;
    for (const ViewProxy& child : view.children) {
        Raise(view.topInset, child.topInset);
        below = std::max(below, PixelSum{child.height} - child.topInset);
        AbsorbTopAndBottomOutsets(view, child, child);
        widths += child.width;
    }
    view.childWidthSum = Cut(widths);
    Raise(view.height, PixelSum{view.marginTop} + view.marginBottom + view.topInset + below);
    Raise(view.width, widths + view.marginLeft + view.marginRight + view.Gaps());
}

// The children lie on top of each other, so the largest decides and there are no gaps.
void MeasureOffscreen(ViewProxy& view) {
    PixelSum widest = 0, highest = 0;
    for (const ViewProxy& child : view.children) {
        AbsorbTopAndBottomOutsets(view, child, child);
        AbsorbSideOutsets(view, child);
        widest = std::max<PixelSum>(widest, child.width);
        highest = std::max<PixelSum>(highest, child.height);
    }
    Raise(view.height, highest + view.marginTop + view.marginBottom);
    Raise(view.width, widest + view.marginLeft + view.marginRight);
}

} // namespace

void Measure(ViewProxy& view, bool rtl) {
    view.rtl = rtl;
    if (view.children.IsEmpty()) return;
    for (ViewProxy& child : view.children) Measure(child, rtl);
    if (view.reverse) view.children.Reverse();
    switch (view.placement) {
    case kPlaceColumn: MeasureColumn(view); break;
    case kPlaceRow: MeasureRow(view); break;
    case kPlaceOffscreen: MeasureOffscreen(view); break;
    default: break; // Kept: an unknown placement is not measured, but placed as a column.
    }
}

} // namespace brixen::zeve
