#include "values/wipe.h"

#include <cstring>

namespace brixen::pvn {

namespace {

template <class Text>
void WipeText(Text& text) noexcept {
    text.resize(text.capacity());
    Wipe(text.data(), text.size() * sizeof(typename Text::value_type));
    text.clear();
}

} // namespace

void Wipe(void* bytes, std::size_t size) noexcept {
    for (volatile char* byte = static_cast<char*>(bytes); size > 0; --size) *byte++ = '\0';
}

void Wipe(std::string& text) noexcept { WipeText(text); }
void Wipe(std::u16string& text) noexcept { WipeText(text); }

void RemoveSecret(T_StorageInterface& bag, std::string_view key) {
    const char* text = nullptr;
    if (!bag.Get(key, kValueTypeString, &text)) return;
    // The bag hands out its own bytes, and forgets them next.
    Wipe(const_cast<char*>(text), std::strlen(text));
    bag.Remove(key, kValueTypeString);
}

bool CopySecret(T_StorageInterface& from, T_StorageInterface& to, std::string_view key) {
    const char* text = nullptr;
    if (!from.Get(key, kValueTypeString, &text)) return false;
    RemoveSecret(to, key);
    return SetString(to, key, text);
}

} // namespace brixen::pvn
