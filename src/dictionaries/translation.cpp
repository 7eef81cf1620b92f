#include "dictionaries/translation.h"

#include "dictionaries/dictionaries_state.h"
#include "dictionaries/encoding.h"
#include "dictionaries/zstring.h"

#include <exception>
#include <stdexcept>

namespace brixen::zeve {

using kestrel::ZString;
using kestrel_private::kEncodingUtf8;

namespace {

std::string_view TextOrEmpty(const char* text) { return text == nullptr ? std::string_view() : text; }

ZString Look(std::string_view key) {
    ZString found;
    kestrel_private::ProcessDictionary().Lookup(found, key, &kEncodingUtf8);
    return found;
}

std::string Utf8Of(const ZString& string) {
    return kestrel_private::EncodeText(string.Text(), &kEncodingUtf8);
}

// Whoever fills the dictionary goes on with what was good; only failures that are no exceptions of the
// standard library are passed on, as one that is.
template <class Population>
void Guarded(const Population& population) {
    try {
        population();
    } catch (const std::exception&) {
        return;
    } catch (...) {
        throw std::logic_error("Exception thrown at CardexLib Zeve dictionary population.");
    }
}

} // namespace

std::string ZeveTranslate(std::string_view key) { return key.empty() ? std::string() : Utf8Of(Look(key)); }

std::string ZeveTranslate(std::string_view key, const std::vector<std::string>& texts) {
    if (key.empty()) return {};
    ZString string = Look(key);
    for (std::size_t i = 0; i < texts.size(); ++i) {
        Substitute(string, static_cast<std::uint32_t>(i), ZString::FromBytes(texts[i], &kEncodingUtf8));
    }
    return Utf8Of(string);
}

std::string ZeveTranslate(std::string_view key, std::uint32_t index, std::string_view text) {
    if (key.empty()) return {};
    ZString string = Look(key);
    Substitute(string, index, ZString::FromBytes(text, &kEncodingUtf8));
    return Utf8Of(string);
}

std::string ZeveTranslate(const char* key) { return ZeveTranslate(TextOrEmpty(key)); }

std::string ZeveTranslate(const char* key, const std::vector<std::string>& texts) {
    return ZeveTranslate(TextOrEmpty(key), texts);
}

std::string ZeveTranslate(const char* key, std::uint32_t index, std::string_view text) {
    return ZeveTranslate(TextOrEmpty(key), index, text);
}

std::string ShownText(std::string_view text) {
    std::string shown = ZeveTranslate(text);
    const bool plain = !text.starts_with("$$$") && text.find('=') == text.npos;
    return shown.empty() && plain ? std::string(text) : shown;
}

void PopulateDictionary(const void* bytes, std::int64_t length) {
    Guarded([&] { kestrel_private::ProcessDictionary().Load(bytes, length, true); });
}

void AddKeyValue(std::string_view keyValue) {
    Guarded([&] {
        const std::size_t equals = keyValue.find('=');
        const std::string key(keyValue.substr(0, equals));
        const std::string_view value =
            equals == keyValue.npos ? std::string_view() : keyValue.substr(equals + 1);
        const std::u16string wide = kestrel_private::DecodeBytes(value, &kEncodingUtf8);
        kestrel_private::ProcessDictionary().Add(key.c_str(), wide.data(),
                                                 static_cast<std::uint32_t>(wide.size()), 0, nullptr, 0);
    });
}

} // namespace brixen::zeve
