#include "toolkit/layout/row.h"

#include "toolkit/layout/arithmetic.h"
#include "toolkit/layout/view_proxy.h"

namespace brixen::zeve {
namespace {

PixelSum RowStart(const ViewProxy& row) {
    return row.IsMirrored() ? PixelSum{row.marginLeft} - row.leftOutset
                            : PixelSum{row.leftOutset} + row.marginLeft;
}

void FitLabel(ViewProxy& row, PixelSum start) {
    ViewProxy& first = *row.children.front();
    if (row.labelWidth <= 0 || !JoinsLabelColumn(first)) return;
    const PixelSum wanted = row.labelWidth - start;
    const PixelSum grow = wanted - first.labelWidth;
    first.width = Cut(first.width + grow);
    first.labelWidth = Cut(wanted);
    row.childWidthSum = Cut(row.childWidthSum + grow);
}

// A child that says nothing takes no part, unlike in a column: meant.
bool StretchesInRow(const ViewProxy& child) {
    return child.horizontal == kAlignFill || child.horizontal == kAlignCenter ||
           child.horizontal == kAlignProportional;
}

// The free room of each child that stretches; the remainder of the division is lost, as meant.
PixelSum ExtraWidth(const ViewProxy& row) {
    PixelSum stretch = 0;
    for (const auto& child : row.children) stretch += StretchesInRow(*child) ? 1 : 0;
    if (stretch == 0) return 0;
    const PixelSum room = PixelSum{row.width} - Gaps(row) - row.marginRight - row.marginLeft;
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
    default: break; // kAlignProportional too writes no top in a row: meant
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
        case kAlignRight: // not packed against the right edge: meant, views rely on it
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

} // namespace

void PlaceRow(ViewProxy& row) {
    const PixelSum start = RowStart(row);
    FitLabel(row, start);
    RowPlacer placer(row, start);
    for (const auto& child : row.children) {
        PlaceVertically(row, *child);
        placer.PlaceNext(*child);
    }
}

} // namespace brixen::zeve
