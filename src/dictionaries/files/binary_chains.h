// Reads what follows the header of a compiled dictionary of version 1.
#pragma once

#include "dictionaries/files/binary_header.h"
#include "dictionaries/store/chain_store.h"

namespace kestrel_private {

// Reads into chains: the items of each bucket, in their order, before those that the chain held. Returns
// false when something is beyond the end of the file; items before it stay. With a conversion code other than
// 0 the values are bytes in that encoding (see zstring/encoding.h), and bytes that are no text throw a
// conversion code. Throws bad_alloc.
using ChainReader = bool (*)(const std::uint8_t* begin, const std::uint8_t* end, std::uint8_t conversionCode,
                             ChainStore& chains);

// The reader of a version; null for an unknown version.
ChainReader ChainReaderOf(const BinaryVersion& version);

} // namespace kestrel_private
