// Keys for the benchmarks of dictionaries.
#pragma once

#include <cstddef>
#include <string>

namespace bench {

using MakeKey = std::string (*)(std::size_t);

// Returns a key of equal parts, padded with zeros: all but a few are in three buckets.
std::string PaddedKey(std::size_t number);
// Returns a key as an author writes it.
std::string NaturalKey(std::size_t number);

} // namespace bench
