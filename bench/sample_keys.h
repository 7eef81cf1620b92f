// Makes the keys of dictionaries to measure with.
#pragma once

#include <cstddef>
#include <string>

namespace bench {

using MakeKey = std::string (*)(std::size_t);

// A key of equal parts, padded with zeros: all but a few are in three buckets.
std::string PaddedKey(std::size_t number);
// A key as an author writes it.
std::string NaturalKey(std::size_t number);

} // namespace bench
