// Decodes any units as a value: no text becomes longer, and a text without escapes and entities does not
// change.
#include "dictionaries/value_decoding.h"
#include "dictionaries/zstring/zstring.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t length) {
    std::u16string text(length / 2, u'\0');
    if (!text.empty()) std::memcpy(text.data(), bytes, text.size() * 2);
    const std::u16string decoded = kestrel_private::DecodeValue(text);
    if (decoded.size() > text.size()) std::abort();
    if (text.find_first_of(u"^\\#") == text.npos && decoded != text) std::abort();
    kestrel::ZString string(decoded);
    kestrel::Substitute(string, 0, kestrel::ZString());
    if (string.Length() > decoded.size()) std::abort();
    return 0;
}
