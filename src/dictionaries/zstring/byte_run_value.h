#pragma once

#include "dictionaries/zstring/ref_count_obj.h"

#include <cstddef>
#include <cstdint>
#include <new>

namespace kestrel_private {

// The immutable bytes behind a ZString: UTF-16 units in native order, not terminated. The bytes are null when
// there are none. Object and bytes are one block of memory.
class ByteRunValue : public RefCountObj {
public:
    // Copies `length` bytes. Like every shared object, the value begins without a reference.
    static ByteRunValue* Copy(const void* bytes, std::uint32_t length);
    // `length` bytes that the maker fills before anyone else sees them.
    static ByteRunValue* Make(std::uint32_t length);
    static void operator delete(void* memory) { ::operator delete(memory); }

    std::uint32_t Length() const { return length; }
    const std::byte* Bytes() const {
        return length == 0 ? nullptr : reinterpret_cast<const std::byte*>(this + 1);
    }
    std::byte* FillBytes() { return const_cast<std::byte*>(Bytes()); }

private:
    explicit ByteRunValue(std::uint32_t length) : length(length) {}

    std::uint32_t length;
};

} // namespace kestrel_private
