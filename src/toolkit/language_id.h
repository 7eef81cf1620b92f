// Language identifiers as hosts hand them over, such as `ja_JP`.
#pragma once

#include <string>
#include <string_view>

namespace brixen::zeve {

// The first five characters, lower-cased, the third a `-`: `ja_JP` and `JA-jp` both give `ja-jp`. A shorter
// text stays shorter and so equals no language.
std::string NormalizedLanguage(std::string_view languageInfo);
// Whether dialogs in the language run from right to left: `ar-ae` and `he-il`.
bool IsRightToLeftLanguage(std::string_view languageInfo);

} // namespace brixen::zeve
