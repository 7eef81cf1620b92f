#include "toolkit/language_id.h"

namespace brixen::zeve {

namespace {

constexpr std::size_t kIdentifierLength = 5;
constexpr std::size_t kDivider = 2;

char LowerCase(char character) {
    return character >= 'A' && character <= 'Z' ? static_cast<char>(character - 'A' + 'a') : character;
}

} // namespace

std::string NormalizedLanguage(std::string_view languageInfo) {
    std::string language(languageInfo.substr(0, kIdentifierLength));
    for (char& character : language) character = LowerCase(character);
    if (language.size() > kDivider) language[kDivider] = '-';
    return language;
}

bool IsRightToLeftLanguage(std::string_view languageInfo) {
    const std::string language = NormalizedLanguage(languageInfo);
    return language == "ar-ae" || language == "he-il";
}

} // namespace brixen::zeve
