// Markup of the kinds that the library reads, for both sides of a comparison.
#pragma once

#include <cstddef>
#include <string>

namespace bench {

// Records on one line each, with attributes and a reference here and there: at least `bytes` long.
std::string MarkupRecords(std::size_t bytes);
// The same records, each element on a line of its own and indented by its depth.
std::string MarkupIndented(std::size_t bytes);
// What a service answers to a call: about 1 KB.
std::string MarkupAnswer();

} // namespace bench
