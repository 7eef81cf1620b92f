#pragma once

#include "values/markup/element_table.h"

#include <cstdint>
#include <string>
#include <string_view>

// The parser of the markup document. Private to it.
namespace brixen::lyr::gen {

// Positions are 32-bit.
inline constexpr std::size_t kLongestMarkup = 0x7FFFFFFF;

// Parses the first element of `text`, which is no longer than kLongestMarkup, and all that is in it, into the
// table under `parent`. Returns its index; 0 when an end tag came first; -1 with a message in `error`. Unless
// an index is returned no entry is left taken, though the table may have grown. Comments and the like in
// front of the element are stepped over. Nesting costs no stack.
std::int32_t ParseElement(std::string_view text, ElementTable& table, std::int32_t parent,
                          std::string& error);

} // namespace brixen::lyr::gen
