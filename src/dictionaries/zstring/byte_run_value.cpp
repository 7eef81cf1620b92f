#include "dictionaries/zstring/byte_run_value.h"

#include <cstring>

namespace kestrel_private {

ByteRunValue* ByteRunValue::Make(std::uint32_t length) {
    return ::new (::operator new(sizeof(ByteRunValue) + length)) ByteRunValue(length);
}

ByteRunValue* ByteRunValue::Copy(const void* bytes, std::uint32_t length) {
    ByteRunValue* const value = Make(length);
    if (length != 0) std::memcpy(value->FillBytes(), bytes, length);
    return value;
}

} // namespace kestrel_private
