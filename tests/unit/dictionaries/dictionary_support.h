// Dictionaries of one test: a clean process-wide state, text files as bytes, and short ways to load and ask.
#pragma once

#include "dictionaries/dictionaries_state.h"
#include "dictionaries/zstring_dictionary.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace pavane_test {

// Resets the process-wide state before and after each test.
class DictionaryTest : public testing::Test {
protected:
    DictionaryTest() { kestrel_private::ResetState(); }
    ~DictionaryTest() override { kestrel_private::ResetState(); }
};

// Return the bytes of a text file in UTF-16 of either order, with its mark.
inline std::string LittleEndian(std::u16string_view text) {
    std::string bytes = "\xFF\xFE";
    for (const char16_t unit : text) {
        bytes += static_cast<char>(unit & 0xFF);
        bytes += static_cast<char>(unit >> 8);
    }
    return bytes;
}

inline std::string BigEndian(std::u16string_view text) {
    std::string bytes = LittleEndian(text);
    for (std::size_t i = 0; i < bytes.size(); i += 2) std::swap(bytes[i], bytes[i + 1]);
    return bytes;
}

inline void LoadBytes(kestrel::ZStringDictionary& dictionary, std::string_view bytes) {
    dictionary.Load(bytes.data(), static_cast<std::int64_t>(bytes.size()), true);
}

inline void LoadText(kestrel::ZStringDictionary& dictionary, std::u16string_view text) {
    LoadBytes(dictionary, LittleEndian(text));
}

inline std::u16string Found(const kestrel::ZStringDictionary& dictionary, const char* keyText) {
    kestrel::ZString found;
    dictionary.Lookup(found, keyText, nullptr);
    return std::u16string(found.Text());
}

inline std::int32_t AddText(kestrel::ZStringDictionary& dictionary, const std::string& keyText,
                            std::u16string_view value) {
    return dictionary.Add(keyText.c_str(), value.data(), static_cast<std::uint32_t>(value.size()), 0, nullptr,
                          0);
}

} // namespace pavane_test
