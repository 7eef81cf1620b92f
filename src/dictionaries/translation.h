#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

// The words that a user sees, from the process-wide dictionary. Keys and results are UTF-8. The dictionary is
// made at library start, and on demand when it is missing; the user-interface thread alone may call.
namespace brixen::zeve {

// The text under `key`, a key text such as `$$$/a/b=Default` (see dictionaries/zstring_dictionary.h). Empty
// for a null or empty key, and when neither the dictionary nor the key text has words. A key text whose
// default is not UTF-8 raises a conversion code (see dictionaries/zstring/encoding.h).
std::string ZeveTranslate(std::string_view key);
std::string ZeveTranslate(const char* key);

// The same with the placeholders `^0`, `^1`, ... replaced by the texts of the list, in their order.
std::string ZeveTranslate(std::string_view key, const std::vector<std::string>& texts);
std::string ZeveTranslate(const char* key, const std::vector<std::string>& texts);

// The same with the placeholder `^index` alone replaced.
std::string ZeveTranslate(std::string_view key, std::uint32_t index, std::string_view text);
std::string ZeveTranslate(const char* key, std::uint32_t index, std::string_view text);

// What a control shows for `text`: its translation, or the text itself when that is plain, which is to say
// that it does not begin with `$$$`, holds no `=` and is not in the dictionary.
std::string ShownText(std::string_view text);

// Reads a dictionary file's bytes into the process-wide dictionary. A std::exception on the way is swallowed;
// anything else becomes std::logic_error. What was read before either is kept.
void PopulateDictionary(const void* bytes, std::int64_t length);

// Adds the UTF-8 text `key=value`, split at its first `=`; failures as with PopulateDictionary.
void AddKeyValue(std::string_view keyValue);

} // namespace brixen::zeve
