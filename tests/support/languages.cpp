#include "support/languages.h"

#include <algorithm>
#include <fstream>
#include <sstream>

namespace pavane_test {
namespace {

std::vector<Language> ReadLanguages() {
    std::vector<Language> languages;
    std::ifstream file(PAVANE_TEST_DATA "/../../resources/languages");
    for (std::string line; std::getline(file, line);) {
        if (line.empty() || line[0] == '#') continue;
        Language& language = languages.emplace_back();
        std::string direction;
        std::string bytes;
        std::istringstream row(line);
        row >> language.locale >> direction >> bytes >> language.group >> std::ws;
        std::getline(row, language.name);
        language.isRightToLeft = direction == "right";
        language.isBigEndian = bytes == "BE";
    }
    return languages;
}

} // namespace

const std::vector<Language>& Languages() {
    static const std::vector<Language> languages = ReadLanguages();
    return languages;
}

std::vector<std::string> Locales() {
    std::vector<std::string> locales;
    for (const Language& language : Languages()) locales.push_back(language.locale);
    return locales;
}

bool IsRightToLeft(const std::string& locale) {
    return std::ranges::any_of(Languages(), [&locale](const Language& language) {
        return language.isRightToLeft && language.locale == locale;
    });
}

} // namespace pavane_test
