#include "dictionaries/store/dictionary_entry.h"

#include <string>
#include <utility>

namespace kestrel_private {
namespace {

void PutUnit(std::ostream& stream, char16_t unit) {
    stream.put(static_cast<char>(unit & 0xFF));
    stream.put(static_cast<char>(unit >> 8));
}

void PutText(std::ostream& stream, std::u16string_view text) {
    for (const char16_t unit : text) PutUnit(stream, unit);
}

void PutEscaped(std::ostream& stream, char16_t unit) {
    switch (unit) {
    case u'\n': PutText(stream, u"\\n"); break;
    case u'\r': PutText(stream, u"\\r"); break;
    case u'"': PutText(stream, u"\\\""); break;
    default: PutUnit(stream, unit);
    }
}

std::size_t PutBytes(std::ostream& stream, std::string_view bytes) {
    stream.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    return bytes.size();
}

std::string_view BytesOf(const kestrel::ZString& value) {
    return {reinterpret_cast<const char*>(value.Value()->Bytes()), value.ByteLength()};
}

std::string Swapped(std::string_view bytes) {
    std::string swapped(bytes);
    for (std::size_t i = 0; i + 1 < swapped.size(); i += 2) std::swap(swapped[i], swapped[i + 1]);
    return swapped;
}

} // namespace

std::size_t DictionaryEntry::Write(std::ostream& stream, bool raw, const EncodingCode* encoding) const {
    const std::size_t keyBytes = WriteKey(stream, raw);
    return keyBytes + WriteValue(stream, raw, encoding, ByteOrder::kNative);
}

std::size_t DictionaryEntry::WriteKey(std::ostream& stream, bool raw) const {
    if (raw) return PutBytes(stream, Key());
    PutUnit(stream, u'"');
    for (const char byte : Key()) PutUnit(stream, static_cast<unsigned char>(byte));
    PutUnit(stream, u'=');
    return 0;
}

std::size_t DictionaryEntry::WriteValue(std::ostream& stream, bool raw, const EncodingCode* encoding,
                                        ByteOrder byteOrder) const {
    if (raw && byteOrder == ByteOrder::kSwapped) return PutBytes(stream, Swapped(BytesOf(value)));
    if (raw && encoding != nullptr) return PutBytes(stream, EncodeText(value.Text(), encoding));
    if (raw) return PutBytes(stream, BytesOf(value));
    for (const char16_t unit : value.Text()) PutEscaped(stream, unit);
    PutText(stream, u"\"\r\n");
    return 0;
}

} // namespace kestrel_private
