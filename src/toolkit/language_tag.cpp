#include "toolkit/language_tag.h"

#include "frame/shipped_languages.h"
#include "values/unicode/ascii.h"

#include <algorithm>

namespace brixen::zeve {

std::string NormalizeLanguage(std::string_view language) {
    std::string tag(language.substr(0, 5));
    std::transform(tag.begin(), tag.end(), tag.begin(), lyr::gen::ToAsciiLower<char>);
    if (tag.size() > 2) tag[2] = '-';
    return tag;
}

bool IsRightToLeftLanguage(std::string_view language) {
    const std::string tag = NormalizeLanguage(language);
    return std::ranges::any_of(pvn::ShippedLanguages(), [&tag](const pvn::ShippedLanguage& shipped) {
        return shipped.isRightToLeft && NormalizeLanguage(shipped.locale) == tag;
    });
}

} // namespace brixen::zeve
