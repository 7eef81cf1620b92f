#include "dictionaries/store/hash_item.h"

#include "dictionaries/store/key_text.h"

#include <cstring>

namespace kestrel_private {

std::size_t HashItem::WriteKey(std::ostream& stream, bool raw) const { return Write(stream, raw, nullptr); }

std::size_t HashItem::WriteValue(std::ostream& stream, bool raw, const EncodingCode* encoding,
                                 ByteOrder /*byteOrder*/) const {
    return Write(stream, raw, encoding);
}

ByteRunKey::ByteRunKey(std::string_view key, Bytes bytes)
    : fKey(key.data()), fLength(static_cast<std::uint32_t>(key.size())) {
    if (bytes == Bytes::Borrowed) return;
    fOwned = std::make_unique<char[]>(key.size());
    if (!key.empty()) std::memcpy(fOwned.get(), key.data(), key.size());
    fKey = fOwned.get();
}

ByteRunKey::ByteRunKey(const ByteRunKey& other) : ByteRunKey(other.Key(), Bytes::Copied) {}

std::size_t ByteRunKey::Write(std::ostream& stream, bool raw, const EncodingCode* /*encoding*/) const {
    stream.write(fKey, fLength);
    return raw ? fLength : 0;
}

std::uint32_t ByteRunKey::Hash(std::uint32_t modulus) const {
    return modulus == 0 ? 0 : KeyHash(Key(), modulus);
}

bool ByteRunKey::Equals(const HashItem& other) const {
    const auto* const key = dynamic_cast<const ByteRunKey*>(&other);
    return key != nullptr && key->Key() == Key();
}

} // namespace kestrel_private
