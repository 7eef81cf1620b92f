#include "toolkit/layout/column.h"

#include "toolkit/layout/arithmetic.h"
#include "toolkit/layout/horizontal_fit.h"
#include "toolkit/layout/view_proxy.h"

namespace brixen::zeve {
namespace {

// A child that says nothing takes part, unlike in a row: meant.
bool StretchesInColumn(const ViewProxy& child) {
    return child.vertical == kAlignNone || child.vertical == kAlignFill || child.vertical == kAlignCenter ||
           child.vertical == kAlignProportional;
}

// The free room of each child that stretches; the remainder of the division is lost, as meant.
PixelSum ExtraHeight(const ViewProxy& column) {
    PixelSum stretch = 0;
    for (const auto& child : column.children) stretch += StretchesInColumn(*child) ? 1 : 0;
    if (stretch == 0) return 0;
    const PixelSum room = PixelSum{column.height} - Gaps(column) - column.marginBottom - column.marginTop;
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
        case kAlignBottom: // not packed against the bottom edge: meant, views rely on it
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

} // namespace

void PlaceColumn(ViewProxy& column) {
    const LabelRule labelRule = column.hasLabel ? LabelRule::On : LabelRule::Off;
    ColumnPlacer placer(column);
    for (const auto& child : column.children) {
        placer.PlaceNext(*child);
        FitHorizontally(column, *child, labelRule);
    }
}

} // namespace brixen::zeve
