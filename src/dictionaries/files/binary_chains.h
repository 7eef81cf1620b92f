#pragma once

#include "dictionaries/files/binary_header.h"
#include "dictionaries/store/chain_store.h"

namespace kestrel_private {

// Reads the body of a compiled dictionary of version 1 into chains: each bucket's items in their order, in
// front of what its chain held. False when something lies beyond the end; what was read before stays. With a
// conversion code other than 0 the values are bytes in that encoding (see dictionaries/zstring/encoding.h,
// whose codes are thrown).
using ChainReader = bool (*)(const std::uint8_t* begin, const std::uint8_t* end, std::uint8_t conversionCode,
                             ChainStore& chains);

// Null for a version that is not known.
ChainReader ChainReaderOf(const BinaryVersion& version);

} // namespace kestrel_private
