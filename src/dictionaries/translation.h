// The words that a user sees, from the process-wide dictionary.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

// Keys and results are UTF-8. For the user-interface thread alone. The translations throw bad_alloc.
namespace brixen::zeve {

// The words of `key`, a key text such as `$$$/a/b=Default` (see zstring_dictionary.h). Empty for a null or
// empty key, and when neither the dictionary nor the key text has words. Throws a conversion code (see
// zstring/encoding.h) for a default text that is not UTF-8.
[[nodiscard]] std::string ZeveTranslate(std::string_view key);
[[nodiscard]] std::string ZeveTranslate(const char* key);

// The same with the placeholders `^0`, `^1`, ... replaced by the texts of the list, one after the other.
[[nodiscard]] std::string ZeveTranslate(std::string_view key, const std::vector<std::string>& texts);
[[nodiscard]] std::string ZeveTranslate(const char* key, const std::vector<std::string>& texts);

// The same with one placeholder replaced, `^index`.
[[nodiscard]] std::string ZeveTranslate(std::string_view key, std::uint32_t index, std::string_view text);
[[nodiscard]] std::string ZeveTranslate(const char* key, std::uint32_t index, std::string_view text);

// The text that a control shows for `text`: its translation, or the text itself if it is plain: it does not
// begin with `$$$`, has no `=`, and has no words in the dictionary.
[[nodiscard]] std::string ShownText(std::string_view text);

// Reads the bytes of a dictionary file into the process-wide dictionary. A std::exception ends the reading
// and is swallowed; any other exception becomes a std::logic_error. Entries that were read before stay.
void PopulateDictionary(const void* bytes, std::int64_t length);

// Adds the UTF-8 text `key=value`, split at its first `=`. Failures are as in PopulateDictionary.
void AddKeyValue(std::string_view keyValue);

} // namespace brixen::zeve
