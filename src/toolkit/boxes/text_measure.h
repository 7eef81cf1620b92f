// Measures texts on the screen before any control exists.
#pragma once

#include "toolkit/platform/toolkit_platform.h"

#include <cstdint>
#include <string_view>

namespace brixen::zeve {

class CEveBox;
class CExpressionScope;

// Translates the view's name, stores it as the box's name text, and returns its extent in the view's font; if
// the translated `alt_name` is longer in bytes, the extent of that. With a `width` other than 0 the text is
// cut into pieces of at most that many pixels, wherever they stop fitting; the result is the width of the
// widest piece and the height of all together.
[[nodiscard]] platform::Extent MeasureName(CEveBox& box, const CExpressionScope& viewAttributes,
                                           std::int64_t width);

// Returns the extent of the longest entry of a popup, braces and value included. `items` is the translated
// text of its list.
[[nodiscard]] platform::Extent MeasureLongestItem(std::string_view items);

} // namespace brixen::zeve
