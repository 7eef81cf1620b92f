// The languages that are shipped: the rows of resources/languages, as the program knows them.
#pragma once

#include <span>
#include <string_view>

namespace brixen::pvn {

struct ShippedLanguage {
    std::string_view locale; // such as "he_IL"
    bool isRightToLeft;      // its lines begin on the right
};

// All of them, in the order of the table. The build writes the table, so a new language needs no change here.
// Any thread may read it at any time.
std::span<const ShippedLanguage> ShippedLanguages() noexcept;

// The language whose locale is exactly this text, or null.
const ShippedLanguage* FindShippedLanguage(std::string_view locale) noexcept;

} // namespace brixen::pvn
