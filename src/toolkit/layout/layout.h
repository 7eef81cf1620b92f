// The arithmetic of the layout: the place of every view of a finished tree, in whole pixels. Nothing here
// knows windows, fonts or boxes.
//
// Sums are made in 64 bits and cut to 32 bits when they are stored. Nothing is refused and nothing fails;
// negative sizes pass through.
#pragma once

#include "toolkit/layout/view_proxy.h"

#include <cstdint>

namespace brixen::zeve {

// Added to the top of the children of an outermost offscreen view; a box whose top is greater subtracts it.
inline constexpr std::int32_t kOffscreenDistance = 10000;

// Each pass walks the whole tree once and recurses as deep as the tree is.

// Sets `rtl` everywhere. Finds, children before their parents, the outsets, the label columns, and the
// smallest sizes that hold all children. Reverses the children of views with `reverse`.
void Measure(ViewProxy& view, bool rtl);
// Sets, parents before their children, the positions relative to the parent, and the sizes of views that
// fill.
void Place(ViewProxy& view);

// Runs all passes. Call it once for a tree; its sizes and positions are final afterward.
inline void LayOut(ViewProxy& root, bool rightToLeft) {
    Measure(root, rightToLeft && !root.alwaysL2R);
    Place(root);
}

} // namespace brixen::zeve
