// The languages that are shipped: the rows of resources/languages as a table in the program.
#pragma once

#include <span>
#include <string_view>

namespace brixen::pvn {

struct ShippedLanguage {
    std::string_view locale; // such as "he_IL"
    bool isRightToLeft;      // its lines begin on the right
};

// Returns all of them in the order of that file. The build writes the table, so a new language needs no
// change here. Any thread.
[[nodiscard]] std::span<const ShippedLanguage> ShippedLanguages() noexcept;

// Returns the language with exactly this locale, or null.
[[nodiscard]] const ShippedLanguage* FindShippedLanguage(std::string_view locale) noexcept;

} // namespace brixen::pvn
