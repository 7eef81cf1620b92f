#include "toolkit/layout/layout.h"
#include "toolkit/layout/pixel_sum.h"
#include "toolkit/layout/view_proxy.h"

#include <cstdint>

namespace brixen::zeve {
namespace {

// Horizontal fit: the place of a child between the left and right edges of a column or of an offscreen view.

enum class LabelRule : std::uint8_t {
    kOff,
    kOn // the label of the child ends where the label column of the parent does
};

// Intentional: never mirrored, a child that fills lies the same from either side.
void Fill(const ViewProxy& parent, ViewProxy& child, LabelRule labelRule) {
    child.width = Cut(PixelSum{parent.width} - parent.marginRight - parent.marginLeft);
    if (labelRule == LabelRule::kOn) child.labelWidth = Cut(PixelSum{parent.labelWidth} - parent.marginLeft);
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
    if (labelRule == LabelRule::kOn && child.hasLabel) LineUpLabel(parent, child);
    child.left = parent.IsMirrored()
                     ? Cut(PixelSum{parent.leftOutset} - child.width - parent.marginLeft + parent.width)
                     : AfterLeftEdge(parent, child);
}

// Kept: the distance to the right edge is `marginLeft`, views rely on it.
void AlignRight(const ViewProxy& parent, ViewProxy& child) {
    child.left = parent.IsMirrored()
                     ? AfterLeftEdge(parent, child)
                     : Cut(PixelSum{parent.width} - child.width - parent.marginLeft - parent.leftOutset);
}

void FitHorizontally(const ViewProxy& parent, ViewProxy& child, LabelRule labelRule) {
    switch (child.horizontal) {
    case kAlignFill: Fill(parent, child, labelRule); break;
    case kAlignCenter:
    case kAlignProportional: Center(parent, child); break; // Kept: proportional is the same as centered here.
    case kAlignNone:
    case kAlignLeft: AlignLeft(parent, child, labelRule); break;
    case kAlignRight: AlignRight(parent, child); break;
    default: break;
    }
}

// Rows

PixelSum RowStart(const ViewProxy& row) {
    return row.IsMirrored() ? PixelSum{row.marginLeft} - row.leftOutset
                            : PixelSum{row.leftOutset} + row.marginLeft;
}

void FitLabel(ViewProxy& row, PixelSum start) {
    ViewProxy& first = row.children.Front();
    if (row.labelWidth <= 0 || !first.JoinsLabelColumn()) return;
    const PixelSum wanted = row.labelWidth - start;
    const PixelSum grow = wanted - first.labelWidth;
    first.width = Cut(first.width + grow);
    first.labelWidth = Cut(wanted);
    row.childWidthSum = Cut(row.childWidthSum + grow);
}

// Kept: a child without an alignment does not stretch, unlike in a column.
bool StretchesInRow(const ViewProxy& child) {
    return child.horizontal == kAlignFill || child.horizontal == kAlignCenter ||
           child.horizontal == kAlignProportional;
}

// Returns the free room of each child that stretches. Kept: the remainder of the division is lost.
PixelSum ExtraWidth(const ViewProxy& row) {
    PixelSum stretch = 0;
    for (const ViewProxy& child : row.children) stretch += StretchesInRow(child) ? 1 : 0;
    if (stretch == 0) return 0;
    const PixelSum room = PixelSum{row.width} - row.Gaps() - row.marginRight - row.marginLeft;
    return room > row.childWidthSum ? (room - row.childWidthSum) / stretch : 0;
}

void PlaceVertically(const ViewProxy& row, ViewProxy& child) {
    const PixelSum above = PixelSum{row.marginTop} + row.topOutset + row.topInset - child.topInset;
    const PixelSum floor = PixelSum{row.height} - row.marginBottom + row.topOutset;
    switch (child.vertical) {
    case kAlignFill:
        child.top = Cut(above);
        child.height = Cut(floor - above);
        break;
    case kAlignNone:
    case kAlignCenter: child.top = Cut((floor - child.height - above) / 2 + above); break;
    case kAlignTop: child.top = Cut(above); break;
    case kAlignBottom: child.top = Cut(floor - child.height); break;
    default: break; // Kept: kAlignProportional writes no top in a row.
    }
}

class RowPlacer {
public:
    RowPlacer(const ViewProxy& placed, PixelSum start)
        : row(placed), mirrored(placed.IsMirrored()), extra(ExtraWidth(placed)), x(start) {}

    void PlaceNext(ViewProxy& child) {
        switch (child.horizontal) {
        case kAlignNone:
        case kAlignLeft:
        case kAlignRight: // Kept: not packed against the right edge, views rely on it.
            child.left = Cut(mirrored ? PixelSum{row.width} - child.width - x : x);
            break;
        case kAlignFill:
            child.width = Cut(child.width + extra);
            PlaceStretched(child, x);
            break;
        case kAlignCenter:
            PlaceStretched(child, x + extra / 2);
            x += extra;
            break;
        case kAlignProportional:
            PlaceStretched(child, ProportionalLeft(child));
            x += extra;
            break;
        default: break;
        }
        x += PixelSum{child.width} + row.spacing;
    }

private:
    void PlaceStretched(ViewProxy& child, PixelSum position) const {
        child.left = Cut(mirrored ? child.leftOutset - position - child.width + row.width : position);
    }

    PixelSum ProportionalLeft(const ViewProxy& child) const {
        const PixelSum inner =
            PixelSum{row.width} - row.rightOutset - row.leftOutset - row.marginLeft - row.marginRight;
        return ProportionalPosition(x, extra, x - row.leftOutset - row.marginLeft,
                                    inner - child.width - extra);
    }

    const ViewProxy& row;
    const bool mirrored;
    const PixelSum extra;
    PixelSum x; // where the next child starts, from the right edge when mirrored
};

void PlaceRow(ViewProxy& row) {
    const PixelSum start = RowStart(row);
    FitLabel(row, start);
    RowPlacer placer(row, start);
    for (ViewProxy& child : row.children) {
        PlaceVertically(row, child);
        placer.PlaceNext(child);
    }
}

// Columns

// Kept: a child without an alignment stretches, unlike in a row.
bool StretchesInColumn(const ViewProxy& child) {
    return child.vertical == kAlignNone || child.vertical == kAlignFill || child.vertical == kAlignCenter ||
           child.vertical == kAlignProportional;
}

// Returns the free room of each child that stretches. Kept: the remainder of the division is lost.
PixelSum ExtraHeight(const ViewProxy& column) {
    PixelSum stretch = 0;
    for (const ViewProxy& child : column.children) stretch += StretchesInColumn(child) ? 1 : 0;
    if (stretch == 0) return 0;
    const PixelSum room = PixelSum{column.height} - column.Gaps() - column.marginBottom - column.marginTop;
    return room > column.childHeightSum ? (room - column.childHeightSum) / stretch : 0;
}

class ColumnPlacer {
public:
    explicit ColumnPlacer(const ViewProxy& placed)
        : column(placed), extra(ExtraHeight(placed)), y(PixelSum{placed.topOutset} + placed.marginTop) {}

    void PlaceNext(ViewProxy& child) {
        switch (child.vertical) {
        case kAlignNone:
        case kAlignCenter:
            child.top = Cut(extra / 2 + y);
            y += extra;
            break;
        case kAlignFill:
            child.height = Cut(child.height + extra);
            child.top = Cut(y);
            break;
        case kAlignProportional:
            child.top = Cut(ProportionalTop(child));
            y += extra;
            break;
        case kAlignTop:
        case kAlignBottom: // Kept: not packed against the bottom edge, views rely on it.
            child.top = Cut(y);
            break;
        default: break;
        }
        y += PixelSum{child.height} + column.spacing;
    }

private:
    PixelSum ProportionalTop(const ViewProxy& child) const {
        const PixelSum inner = PixelSum{column.height} - column.bottomOutset - column.marginBottom -
                               column.topOutset - column.marginTop;
        return ProportionalPosition(y, extra, y - column.topOutset - column.marginTop,
                                    inner - child.height - extra);
    }

    const ViewProxy& column;
    const PixelSum extra;
    PixelSum y; // where the next child starts
};

void PlaceColumn(ViewProxy& column) {
    const LabelRule labelRule = column.hasLabel ? LabelRule::kOn : LabelRule::kOff;
    ColumnPlacer placer(column);
    for (ViewProxy& child : column.children) {
        placer.PlaceNext(child);
        FitHorizontally(column, child, labelRule);
    }
}

// Offscreen views

// All children get the same frame, one above the other, far below until their boxes are made.
void PlaceOffscreen(ViewProxy& view) {
    const bool inside = view.details.parent && view.details.parent->offscreen;
    const std::int32_t distance = inside ? 0 : kOffscreenDistance;
    for (ViewProxy& child : view.children) {
        FitHorizontally(view, child, LabelRule::kOff);
        child.top = Cut(PixelSum{view.topOutset} + view.marginTop + distance);
        child.height = Cut(PixelSum{view.height} - view.marginBottom - view.marginTop);
    }
}

void ApplyOffset(const ViewProxy& parent, ViewProxy& child) {
    const PixelSum shift = child.details.leftOffset;
    child.left = Cut(child.left + (parent.IsMirrored() ? -shift : shift));
    child.top = Cut(PixelSum{child.top} + child.details.topOffset);
}

} // namespace

void Place(ViewProxy& view) {
    if (view.children.IsEmpty()) return;
    switch (view.placement) {
    case kPlaceRow: PlaceRow(view); break;
    case kPlaceOffscreen: PlaceOffscreen(view); break;
    default: PlaceColumn(view); break;
    }
    for (ViewProxy& child : view.children) {
        if (child.hasOffset) ApplyOffset(view, child);
        Place(child);
    }
}

} // namespace brixen::zeve
