#include "toolkit/layout/layout.h"
#include "toolkit/layout/arithmetic.h"
#include "toolkit/layout/view_proxy.h"

#include <algorithm>

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

bool StandsInLabelColumn(const ViewProxy& child) {
    return child.horizontal == kAlignNone || child.horizontal == kAlignFill || child.horizontal == kAlignLeft;
}

// The widths that a column's children ask for: those with labels share one edge, the others stand alone.
struct ColumnWidths {
    PixelSum labels = 0, rest = 0, plain = 0;

    void Add(ViewProxy& column, const ViewProxy& child) {
        if (!StandsInLabelColumn(child)) {
            plain =
                std::max<PixelSum>(plain, child.width); // without inset: it only moves a child at the left
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
    AbsorbTopAndBottomOutsets(view, *view.children.front(), *view.children.back());
    ColumnWidths widths;
    PixelSum heights = 0;
    for (const auto& child : view.children) {
        AbsorbSideOutsets(view, *child);
        widths.Add(view, *child);
        heights += child->height;
    }
    view.childHeightSum = Cut(heights);
    if (view.hasLabel) Raise(view.labelWidth, widths.labels + view.marginLeft);
    Raise(view.height, heights + view.marginTop + view.marginBottom + Gaps(view));
    Raise(view.width, widths.Content() + view.marginLeft + view.marginRight);
}

// A row takes its own outset off what the child at its end asks for, where a column does not: meant, views
// rely on it.
void RaiseRowOutset(std::int32_t& outset, std::int32_t childOutset, std::int32_t margin) {
    Raise(outset, std::max<PixelSum>(PixelSum{childOutset} - margin, 0) - outset);
}

void MeasureRow(ViewProxy& view) {
    const ViewProxy& first = *view.children.front();
    RaiseRowOutset(view.leftOutset, first.leftOutset, view.marginLeft);
    RaiseRowOutset(view.rightOutset, view.children.back()->rightOutset, view.marginRight);
    if (JoinsLabelColumn(first)) {
        view.hasLabel = true;
        view.labelWidth = Cut(PixelSum{first.labelWidth} + view.leftOutset + view.marginLeft);
    }
    PixelSum widths = 0, below = 0;
    for (const auto& child : view.children) {
        Raise(view.topInset, child->topInset);
        below = std::max(below, PixelSum{child->height} - child->topInset);
        AbsorbTopAndBottomOutsets(view, *child, *child);
        widths += child->width;
    }
    view.childWidthSum = Cut(widths);
    Raise(view.height, PixelSum{view.marginTop} + view.marginBottom + view.topInset + below);
    Raise(view.width, widths + view.marginLeft + view.marginRight + Gaps(view));
}

// The children lie on top of each other: the largest decides, and there are no gaps.
void MeasureOffscreen(ViewProxy& view) {
    PixelSum widest = 0, highest = 0;
    for (const auto& child : view.children) {
        AbsorbTopAndBottomOutsets(view, *child, *child);
        AbsorbSideOutsets(view, *child);
        widest = std::max<PixelSum>(widest, child->width);
        highest = std::max<PixelSum>(highest, child->height);
    }
    Raise(view.height, highest + view.marginTop + view.marginBottom);
    Raise(view.width, widest + view.marginLeft + view.marginRight);
}

} // namespace

void Measure(ViewProxy& view, bool rtl) {
    view.rtl = rtl;
    if (view.children.empty()) return;
    for (const auto& child : view.children) Measure(*child, rtl);
    if (view.reverse) std::reverse(view.children.begin(), view.children.end());
    switch (view.placement) {
    case kPlaceColumn: MeasureColumn(view); break;
    case kPlaceRow: MeasureRow(view); break;
    case kPlaceOffscreen: MeasureOffscreen(view); break;
    default: break; // an unknown placement is placed as a column, but measured as nothing: meant
    }
}

} // namespace brixen::zeve
