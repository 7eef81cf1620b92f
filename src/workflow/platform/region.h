// The user's country, and the order of words in a language.
#pragma once

#include <string>
#include <string_view>

namespace brixen::pvn::pvn_workflow::platform {

// Returns the country that the user has chosen in the system's settings, as a code of ISO 3166-1 such as
// "DE"; empty if there is none.
[[nodiscard]] std::string UserCountry();

// Returns a text whose bytes sort as `text` does in the dictionaries of the language `locale`, such as
// "de_DE". In a language that the system does not know the order is that of the units.
[[nodiscard]] std::string SortKey(std::string_view locale, std::u16string_view text);

} // namespace brixen::pvn::pvn_workflow::platform
