// Placing the children of a row.
#pragma once

namespace brixen::zeve {

class ViewProxy;

// Writes `left` and `top` of each child, `width` and `height` of those that fill, and stretches the first
// child's label to the row's label column. The row has children, is measured and has its final size.
void PlaceRow(ViewProxy& row);

} // namespace brixen::zeve
