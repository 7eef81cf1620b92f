#include "dictionaries/byte_run_value.h"

#include <cstring>

namespace kestrel_private {

ByteRunValue::ByteRunValue(std::uint32_t length)
    : fLength(length), fBytes(length == 0 ? nullptr : new std::byte[length]) {}

ByteRunValue::ByteRunValue(const void* bytes, std::uint32_t length) : ByteRunValue(length) {
    if (length != 0) std::memcpy(fBytes.get(), bytes, length);
}

} // namespace kestrel_private
