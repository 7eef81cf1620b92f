// The rows of resources/languages, read from the file itself, so that tests can compare the build's results
// with them.
#pragma once

#include <string>
#include <vector>

namespace pavane_test {

struct Language {
    std::string locale; // such as "he_IL"
    bool isRightToLeft;
    bool isBigEndian; // the byte order of its statement
    std::string group;
    std::string name; // in the language itself, UTF-8
};

// Returns all rows in their order, read once.
const std::vector<Language>& Languages();

// Returns the locales in the order of the rows.
std::vector<std::string> Locales();

// Returns whether the table has the locale as one that is read from right to left.
bool IsRightToLeft(const std::string& locale);

} // namespace pavane_test
