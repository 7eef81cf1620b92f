// How far a description may go. Whatever would pass a limit does not parse, as if the text were malformed
// there.
#pragma once

#include <cstdint>

namespace brixen::zeve {

// Parentheses, function calls, prefix operators, right sides of `==` and `!=`, blocks and `eval` together may
// stand inside each other this deep.
inline constexpr int kMaximumReadingDepth = 256;
// How many texts `eval` runs in one run of a description.
inline constexpr std::uint32_t kMaximumEvaluatedTexts = 65536;

} // namespace brixen::zeve
