#include "dictionaries/store/byte_run_key.h"

#include "dictionaries/store/key_text.h"

#include <cstring>

namespace kestrel_private {

ByteRunKey::ByteRunKey(std::string_view keyBytes, Bytes bytes)
    : key(keyBytes.data()), length(static_cast<std::uint32_t>(keyBytes.size())) {
    if (bytes == Bytes::kBorrowed) return;
    owned = std::make_unique<char[]>(keyBytes.size());
    if (!keyBytes.empty()) std::memcpy(owned.get(), keyBytes.data(), keyBytes.size());
    key = owned.get();
}

ByteRunKey::ByteRunKey(const ByteRunKey& other) : ByteRunKey(other.Key(), Bytes::kCopied) {}

std::size_t ByteRunKey::Write(std::ostream& stream, bool raw, const EncodingCode* /*encoding*/) const {
    stream.write(key, length);
    return raw ? length : 0;
}

std::uint32_t ByteRunKey::Hash(std::uint32_t modulus) const {
    return modulus == 0 ? 0 : KeyHash(Key(), modulus);
}

bool ByteRunKey::Equals(const HashItem& other) const {
    const auto* const otherKey = dynamic_cast<const ByteRunKey*>(&other);
    return otherKey != nullptr && otherKey->Key() == Key();
}

} // namespace kestrel_private
