// The bytes that handles to one text share.
#pragma once

#include "dictionaries/zstring/ref_count_obj.h"

#include <cstddef>
#include <cstdint>
#include <new>

namespace kestrel_private {

// UTF-16 units in the order of the machine, without a terminator. Object and bytes are one block of memory.
class ByteRunValue : public RefCountObj {
public:
    // Makes a value with a copy of `length` bytes. It has no reference yet: the first handle adds one.
    static ByteRunValue* Copy(const void* bytes, std::uint32_t length);
    // Makes a value whose bytes are still to be filled, by FillBytes.
    static ByteRunValue* Make(std::uint32_t length);
    static void operator delete(void* memory) { ::operator delete(memory); }

    // In bytes.
    std::uint32_t Length() const { return length; }
    // Null when the length is 0.
    const std::byte* Bytes() const {
        return length == 0 ? nullptr : reinterpret_cast<const std::byte*>(this + 1);
    }
    std::byte* FillBytes() { return const_cast<std::byte*>(Bytes()); }

private:
    explicit ByteRunValue(std::uint32_t length) : length(length) {}

    std::uint32_t length;
};

} // namespace kestrel_private
