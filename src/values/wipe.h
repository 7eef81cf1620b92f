// Removes secrets from memory, such as passwords.
#pragma once

#include "values/storage.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace brixen::pvn {

// Overwrites bytes that nothing reads afterward. The compiler keeps these stores.
void Wipe(void* bytes, std::size_t size) noexcept;
// Overwrites all room of a text, which is then empty.
void Wipe(std::string& text) noexcept;
void Wipe(std::u16string& text) noexcept;

// Overwrites a text that a bag holds, and removes it. Harmless if the key is absent.
void RemoveSecret(T_StorageInterface& bag, std::string_view key);
// As CopyString. No byte of an earlier value of `to` remains. The bags must differ.
bool CopySecret(T_StorageInterface& from, T_StorageInterface& to, std::string_view key);

} // namespace brixen::pvn
