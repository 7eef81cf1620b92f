// Reads what follows the header of a compiled dictionary of version 2.
#pragma once

#include "dictionaries/files/byte_cursor.h"
#include "dictionaries/store/fast_array.h"

#include <optional>
#include <string>

namespace kestrel_private {

struct BinaryBody {
    std::optional<std::string> headerText; // nothing when it is missing or cut off
    FastArrayBlock block;                  // `firstId` as the file says
    BucketLists lists;                     // in the bytes of `block.file`
};

// Reads field by field and ends before the first field that is longer than what is left; the fields before it
// stay. `begin` is the byte after the header. `minor` is that of the version, 0 or greater. The arrays are
// copied, so the bytes are not needed after the call. Throws bad_alloc.
BinaryBody ReadBinaryBody(const std::uint8_t* begin, const std::uint8_t* end, int minor);

} // namespace kestrel_private
