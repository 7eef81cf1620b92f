// Placing the children of a column.
#pragma once

namespace brixen::zeve {

class ViewProxy;

// Writes `left` and `top` of each child, `width` and `height` of those that fill, and lines up the ends of
// the labels. The column has children, is measured and has its final size.
void PlaceColumn(ViewProxy& column);

} // namespace brixen::zeve
