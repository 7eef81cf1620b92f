// Markup of the kinds that the library reads, for both sides of a comparison.
#pragma once

#include <cstddef>
#include <string>

namespace bench {

// Returns records on one line each, with attributes and some references: at least `bytes` long.
std::string MarkupRecords(std::size_t bytes);
// Returns the same records, each element on a line of its own and indented by its depth.
std::string MarkupIndented(std::size_t bytes);
// Returns the answer of a service to a call: about 1 KB.
std::string MarkupAnswer();

} // namespace bench
