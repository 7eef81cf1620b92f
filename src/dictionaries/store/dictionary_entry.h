// An entry of the older store.
#pragma once

#include "dictionaries/store/byte_run_key.h"
#include "dictionaries/zstring/zstring.h"

namespace kestrel_private {

// A key with its value. The writers make lines of a text dictionary, or in raw form the bytes of key and
// value. Lines read back as they were, except that `^`, `\` and `#{` are written as they are and read as
// escapes.
class DictionaryEntry : public ByteRunKey {
public:
    DictionaryEntry(std::string_view key, const kestrel::ZString& value)
        : ByteRunKey(key, Bytes::kCopied), value(value) {}

    std::size_t Write(std::ostream& stream, bool raw, const EncodingCode* encoding) const override;
    std::size_t WriteKey(std::ostream& stream, bool raw) const override;
    std::size_t WriteValue(std::ostream& stream, bool raw, const EncodingCode* encoding,
                           ByteOrder byteOrder) const override;

    const kestrel::ZString& Value() const { return value; }

private:
    kestrel::ZString value;
};

} // namespace kestrel_private
