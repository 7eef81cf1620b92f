#pragma once

#include "dictionaries/zstring/encoding.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <ostream>
#include <string_view>

namespace kestrel_private {

enum class ByteOrder { kNative, kSwapped };

// An entry of a chained hash table. The item owns the rest of its chain.
class HashItem {
public:
    HashItem() = default;
    HashItem(const HashItem&) {} // a copy stands in no chain
    HashItem& operator=(const HashItem&) = delete;

    // The writers return how many bytes they wrote in raw form, and 0 otherwise.
    virtual std::size_t Write(std::ostream& stream, bool raw, const EncodingCode* encoding) const = 0;
    virtual std::size_t WriteKey(std::ostream& stream, bool raw) const;
    virtual std::size_t WriteValue(std::ostream& stream, bool raw, const EncodingCode* encoding,
                                   ByteOrder byteOrder) const;
    virtual ~HashItem() = default;
    virtual std::uint32_t Hash(std::uint32_t modulus) const = 0;
    virtual bool Equals(const HashItem& other) const = 0;

    std::unique_ptr<HashItem> next;
};

// A key that points at bytes of someone else, for a search, or owns a copy.
class ByteRunKey : public HashItem {
public:
    enum class Bytes { kBorrowed, kCopied };
    ByteRunKey(std::string_view keyBytes, Bytes bytes);
    ByteRunKey(const ByteRunKey& other); // always owns

    std::size_t Write(std::ostream& stream, bool raw, const EncodingCode* encoding) const override;
    std::uint32_t Hash(std::uint32_t modulus) const override;
    bool Equals(const HashItem& other) const override;

    std::string_view Key() const { return {key, length}; }
    bool OwnsKey() const { return owned != nullptr; }

private:
    std::unique_ptr<char[]> owned;
    const char* key;
    std::uint32_t length;
};

} // namespace kestrel_private
