// The rows of resources/languages, read from the file itself, so that tests compare what the build made of
// them.
#pragma once

#include <string>
#include <vector>

namespace pavane_test {

struct Language {
    std::string locale; // such as "he_IL"
    bool isRightToLeft;
    bool isBigEndian; // the byte order of its statement
    std::string group;
    std::string name; // what it calls itself, UTF-8
};

// All rows in their order, read once.
const std::vector<Language>& Languages();

// The locales in the order of the rows.
std::vector<std::string> Locales();

// Whether the table has the locale as one that is read from right to left.
bool IsRightToLeft(const std::string& locale);

} // namespace pavane_test
