// Keys of dictionaries to measure with, by their number.
#pragma once

#include <cstddef>
#include <string>

namespace bench {

using MakeKey = std::string (*)(std::size_t);

// Of equal parts, padded with zeros: all but a few land in three buckets.
std::string PaddedKey(std::size_t number);
// As an author writes them.
std::string NaturalKey(std::size_t number);

} // namespace bench
