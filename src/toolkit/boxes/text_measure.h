// The extent of texts on the screen, before any control exists.
#pragma once

#include "toolkit/platform/toolkit_platform.h"

#include <cstdint>
#include <string_view>

namespace brixen::zeve {

class CEveBox;
class CExpressionScope;

// Translates the view's name and stores it as the box's name text, then measures it, or the translated
// `alt_name` if that is longer in bytes, in the font of the view. With a `width` other than 0 the text is cut
// into pieces of at most that many pixels, wherever they stop fitting, and the height is that of all pieces.
platform::Extent MeasureName(CEveBox& box, const CExpressionScope& viewAttributes, std::int64_t width);

// The extent of a popup's longest entry, `items` being the translated text of its list.
platform::Extent MeasureLongestItem(std::string_view items);

} // namespace brixen::zeve
