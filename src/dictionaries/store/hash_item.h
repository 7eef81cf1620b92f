// The base of the entries of a chained hash table.
#pragma once

#include "dictionaries/zstring/encoding.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <ostream>

namespace kestrel_private {

enum class ByteOrder { kNative, kSwapped };

// An item owns the rest of its chain. Writers return the number of bytes written in raw form, and 0
// otherwise. An encoding is as in zstring/encoding.h.
class HashItem {
public:
    HashItem() = default;
    HashItem(const HashItem&) {} // a copy is in no chain
    HashItem& operator=(const HashItem&) = delete;

    virtual std::size_t Write(std::ostream& stream, bool raw, const EncodingCode* encoding) const = 0;
    // By default both forward to Write.
    virtual std::size_t WriteKey(std::ostream& stream, bool raw) const { return Write(stream, raw, nullptr); }
    virtual std::size_t WriteValue(std::ostream& stream, bool raw, const EncodingCode* encoding,
                                   ByteOrder /*byteOrder*/) const {
        return Write(stream, raw, encoding);
    }
    virtual ~HashItem() = default;
    // Below `modulus`.
    virtual std::uint32_t Hash(std::uint32_t modulus) const = 0;
    virtual bool Equals(const HashItem& other) const = 0;

    std::unique_ptr<HashItem> next;
};

} // namespace kestrel_private
