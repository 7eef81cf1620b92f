// Photographic values: a field holds a logarithm and shows an f-number, an exposure time or a brightness.
#pragma once

#include "toolkit/numbers/number_form.h"

#include <string>
#include <string_view>

namespace brixen::zeve {

// Moves an exposure time, in seconds, to the series of times that cameras show. Returns 0 for a time of 0 or
// below.
double SnapShutterTime(double time);

// Returns the value of a fraction as text in an APEX form; an empty text for any other form. Sets
// `isBeyondScale` if the text is the end mark of a scale, and never clears it.
std::string ApexFormat(std::string_view fraction, NumberForm form, bool& isBeyondScale);

} // namespace brixen::zeve
