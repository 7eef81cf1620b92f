// Measures texts on the screen before any control exists.
#pragma once

#include "toolkit/platform/toolkit_platform.h"

#include <cstdint>
#include <string_view>

namespace brixen::zeve {

class CEveBox;
class CExpressionScope;

// Translates the view's name, stores it as the box's name text, and returns its extent in the view's font; if
// the translated `alt_name` is longer in bytes, the extent of that. A `width` of 0 means one line of any
// width. Any other `width` cuts the text into pieces of at most that many pixels, wherever they stop fitting;
// the result is the width of the widest piece and the height of all together. If the view has `whole_words`,
// the text is broken at line feeds and between words instead, as a static control breaks it; the result is
// `width` and the height of all lines. Takes time linear in the length of the text.
//
// Both functions throw SystemBudgetExhausted where the budget of the box ends.
[[nodiscard]] platform::Extent MeasureName(CEveBox& box, const CExpressionScope& viewAttributes,
                                           std::int64_t width);

// Returns the extent of the longest entry of a popup, braces and value included. `items` is the translated
// text of its list.
[[nodiscard]] platform::Extent MeasureLongestItem(const CEveBox& box, std::string_view items);

} // namespace brixen::zeve
