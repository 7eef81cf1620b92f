// Compares the names of languages.
#pragma once

#include <string>
#include <string_view>

namespace brixen::zeve {

// Returns the first five characters in ASCII lower case, the third replaced by '-': "ja-jp" for both "ja_JP"
// and "JA-jp". A shorter text keeps its length.
[[nodiscard]] std::string NormalizeLanguage(std::string_view language);
// Returns whether the normalized language is that of a shipped locale that is read from right to left, such
// as "he-il".
[[nodiscard]] bool IsRightToLeftLanguage(std::string_view language);

} // namespace brixen::zeve
