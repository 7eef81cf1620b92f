#pragma once

#include "dictionaries/files/byte_cursor.h"
#include "dictionaries/store/fast_array.h"

#include <optional>
#include <string>

namespace kestrel_private {

// The body of a compiled dictionary of version 2, behind its header.
struct BinaryBody {
    std::optional<std::string> headerText; // nothing when it is missing or cut off
    FastArrayBlock block;                  // `firstId` as the file has it
    BucketLists lists;
};

// Reads field by field and stops at the first one that does not fit into the bytes; what was read before
// stays. `minor` is that of the version, 0 or greater. The bytes are not needed afterward.
BinaryBody ReadBinaryBody(const std::uint8_t* begin, const std::uint8_t* end, int minor);

} // namespace kestrel_private
