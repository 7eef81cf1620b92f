#pragma once

#include "dictionaries/ref_count_obj.h"

#include <cstddef>
#include <cstdint>
#include <memory>

namespace kestrel_private {

// The immutable bytes behind a ZString: UTF-16 units in native order, not terminated. The bytes are null when
// there are none.
class ByteRunValue : public RefCountObj {
public:
    // Copies `length` bytes.
    ByteRunValue(const void* bytes, std::uint32_t length);
    // `length` bytes that the maker fills before anyone else sees them.
    explicit ByteRunValue(std::uint32_t length);

    std::uint32_t Length() const { return fLength; }
    const std::byte* Bytes() const { return fBytes.get(); }
    std::byte* FillBytes() { return fBytes.get(); }

private:
    std::uint32_t fLength;
    std::unique_ptr<std::byte[]> fBytes;
};

} // namespace kestrel_private
