// The parser of the markup document. Private to it.
#pragma once

#include "values/markup/element_table.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace brixen::lyr::gen {

// In bytes: positions are 32-bit.
inline constexpr std::size_t kLongestMarkup = 0x7FFFFFFF;

// Parses the first element of `text`, which is no longer than kLongestMarkup, and all that is in it, into the
// table under `parent`. Other nodes before the element are skipped. Returns its index; 0 when an end tag came
// first; -1 with a message in `error`. Without an index, no entry stays taken, though the table may have
// grown. Nesting costs no stack.
[[nodiscard]] std::int32_t ParseElement(std::string_view text, ElementTable& table, std::int32_t parent,
                                        std::string& error);

} // namespace brixen::lyr::gen
