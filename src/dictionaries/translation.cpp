#include "dictionaries/translation.h"

#include "dictionaries/process_dictionary.h"
#include "dictionaries/store/key_text.h"
#include "dictionaries/value_decoding.h"
#include "dictionaries/zstring/encoding.h"
#include "values/unicode/character_borders.h"
#include "values/unicode/text_conversion.h"

#include <cstdint>
#include <cstring>
#include <exception>
#include <stdexcept>
#include <utility>

namespace brixen::zeve {

using kestrel_private::kEncodingUtf8;

namespace {

std::string_view TextOrEmpty(const char* text) { return text == nullptr ? std::string_view() : text; }

// The words of a key text. They borrow a value of the dictionary where they can, until the dictionary
// changes.
class Words {
public:
    explicit Words(std::string_view keyText) {
        const kestrel::ZStringDictionary& dictionary = kestrel_private::ProcessDictionary();
        const auto split = kestrel_private::SplitKeyText(keyText);
        if (keyText.empty() || !split) return;
        if (const auto value = dictionary.FindValue(split->key)) {
            Take(*value);
        } else if (!split->defaultText.empty()) {
            owned = kestrel_private::DecodeValue(
                kestrel_private::DecodeBytes(split->defaultText, &kEncodingUtf8));
            text = owned;
        }
    }
    Words(const Words&) = delete;
    Words& operator=(const Words&) = delete;

    std::u16string_view Text() const { return text; }

    void Substitute(std::uint32_t index, std::string_view utf8) {
        const std::u16string replacement = kestrel_private::DecodeBytes(utf8, &kEncodingUtf8);
        std::u16string substituted;
        if (!kestrel_private::SubstituteText(text, index, replacement, substituted)) return;
        owned = std::move(substituted);
        text = owned;
    }

private:
    void Take(const kestrel_private::ValueBytes& value) {
        const std::size_t length = value.length / sizeof(char16_t);
        // A file may have a text at any address.
        if (reinterpret_cast<std::uintptr_t>(value.bytes) % alignof(char16_t) == 0) {
            text = {reinterpret_cast<const char16_t*>(value.bytes), length};
        } else {
            owned.resize(length);
            std::memcpy(owned.data(), value.bytes, length * sizeof(char16_t));
            text = owned;
        }
    }

    std::u16string owned;
    std::u16string_view text;
};

// Unpaired surrogates become U+FFFD, as in every conversion of the dictionaries.
std::string Utf8Of(const Words& words) {
    const std::u16string_view text = words.Text();
    const bool endsInHalf = !text.empty() && lyr::gen::IsHighSurrogate(text.back());
    try {
        if (!endsInHalf) return lyr::gen::ToUtf8(text);
    } catch (const lyr::gen::illegal_utf_sequence&) {
        return kestrel_private::EncodeText(text, &kEncodingUtf8);
    }
    return kestrel_private::EncodeText(text, &kEncodingUtf8);
}

// Runs a population. A standard exception ends it without a word; any other one becomes a logic_error.
template <class Population>
void RunPopulation(const Population& population) {
    try {
        population();
    } catch (const std::exception&) {
        return;
    } catch (...) {
        throw std::logic_error("Exception thrown at CardexLib Zeve dictionary population.");
    }
}

} // namespace

std::string ZeveTranslate(std::string_view key) { return Utf8Of(Words(key)); }

std::string ZeveTranslate(std::string_view key, const std::vector<std::string>& texts) {
    if (key.empty()) return {};
    Words words(key);
    for (std::size_t i = 0; i < texts.size(); ++i) words.Substitute(static_cast<std::uint32_t>(i), texts[i]);
    return Utf8Of(words);
}

std::string ZeveTranslate(std::string_view key, std::uint32_t index, std::string_view text) {
    if (key.empty()) return {};
    Words words(key);
    words.Substitute(index, text);
    return Utf8Of(words);
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
    RunPopulation([&] { kestrel_private::ProcessDictionary().Load(bytes, length, true); });
}

void AddKeyValue(std::string_view keyValue) {
    RunPopulation([&] {
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
