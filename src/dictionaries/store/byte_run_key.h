// A key of a chained hash table.
#pragma once

#include "dictionaries/store/hash_item.h"

#include <string_view>

namespace kestrel_private {

// Borrows bytes, for a search, or owns a copy of them.
class ByteRunKey : public HashItem {
public:
    enum class Bytes { kBorrowed, kCopied };
    ByteRunKey(std::string_view keyBytes, Bytes bytes);
    ByteRunKey(const ByteRunKey& other); // always owns

    // Writes the bytes of the key, whatever `raw` and `encoding` are.
    std::size_t Write(std::ostream& stream, bool raw, const EncodingCode* encoding) const override;
    std::uint32_t Hash(std::uint32_t modulus) const override;
    // Keys are equal when their bytes are.
    bool Equals(const HashItem& other) const override;

    std::string_view Key() const { return {key, length}; }
    bool OwnsKey() const { return owned != nullptr; }

private:
    std::unique_ptr<char[]> owned;
    const char* key;
    std::uint32_t length;
};

} // namespace kestrel_private
