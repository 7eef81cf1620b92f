// The arithmetic of the layout: where every view of a finished tree goes, in whole pixels, once. Nothing here
// knows windows, fonts or boxes. Sums are made in 64 bits and cut to 32 when they are stored; nothing is
// refused and nothing fails, negative sizes pass through.
#pragma once

#include <cstdint>

namespace brixen::zeve {

class ViewProxy;

// All passes, to be run once over a tree: afterward its sizes, and its positions relative to the parent, are
// final. Children of views with `reverse` are in reverse order from here on.
void LayOut(ViewProxy& root, bool rightToLeft);

// The single passes. Each walks the whole tree once and recurses as deep as the tree is.

// Sets `rtl` everywhere, and, children before their parents, finds the outsets, the label columns and the
// smallest sizes that hold all children. Direction and measure share a walk: neither reads what the other
// writes.
void Measure(ViewProxy& view, bool rtl);
// Parents before their children: positions, and the sizes of those that fill.
void Place(ViewProxy& view);

// Added to the top of what an outermost offscreen view holds; a box whose top is greater takes it back.
inline constexpr std::int32_t kOffscreenDistance = 10000;

} // namespace brixen::zeve
