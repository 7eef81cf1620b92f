// Language identifiers as the toolkit compares them.
#pragma once

#include <string>
#include <string_view>

namespace brixen::zeve {

// The first five characters, lower-cased (ASCII), with the third made '-': both "ja_JP" and "JA-jp" give
// "ja-jp". A shorter text keeps its length.
std::string NormalizeLanguage(std::string_view language);
// Whether the text names one of the two languages that are laid out from right to left, "ar-ae" and "he-il".
bool IsRightToLeftLanguage(std::string_view language);

} // namespace brixen::zeve
