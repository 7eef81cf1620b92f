// The arithmetic of the layout: where every view of a finished tree goes, in whole pixels, once. Nothing here
// knows windows, fonts or boxes. Sums are made in 64 bits and cut to 32 when they are stored; nothing is
// refused and nothing fails, negative sizes pass through.
#pragma once

#include <cstdint>

namespace brixen::zeve {

class ViewProxy;

// Direction, measure and place, in that order: afterwards the tree's sizes, and its positions relative to the
// parent, are final. Children of views with `reverse` are in reverse order from here on.
void LayOut(ViewProxy& root, bool rightToLeft);

// The single passes. Each walks the whole tree once and recurses as deep as the tree is.

// Sets `rtl` everywhere.
void SetDirection(ViewProxy& root, bool rightToLeft);
// Children before their parents: outsets, label columns and the smallest sizes that hold all children.
void Measure(ViewProxy& view);
// Parents before their children: positions, and the sizes of those that fill.
void Place(ViewProxy& view);

// Added to the top of what an outermost offscreen view holds; a box whose top is greater takes it back.
inline constexpr std::int32_t kOffscreenDistance = 10000;

} // namespace brixen::zeve
