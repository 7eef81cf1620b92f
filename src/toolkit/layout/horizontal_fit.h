// How columns and offscreen views align one child between their left and right edges.
#pragma once

#include <cstdint>

namespace brixen::zeve {

class ViewProxy;

enum class LabelRule : std::uint8_t {
    Off,
    On
}; // On: the child's label ends where the parent's label column does

// Writes the child's `left`, and its `width` and `labelWidth` where it fills or has a label to line up.
void FitHorizontally(const ViewProxy& parent, ViewProxy& child, LabelRule labelRule);

} // namespace brixen::zeve
