#include "toolkit/language_tag.h"

#include <algorithm>

namespace brixen::zeve {

std::string NormalizeLanguage(std::string_view language) {
    std::string tag(language.substr(0, 5));
    std::transform(tag.begin(), tag.end(), tag.begin(),
                   [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; });
    if (tag.size() > 2) tag[2] = '-';
    return tag;
}

bool IsRightToLeftLanguage(std::string_view language) {
    const std::string tag = NormalizeLanguage(language);
    return tag == "ar-ae" || tag == "he-il";
}

} // namespace brixen::zeve
