// The list of countries, in the order in which a reader of the language looks for them.
#pragma once

#include <string>
#include <string_view>

namespace brixen::pvn::pvn_workflow {

// Returns a list for a popup, `label{code};label{code}`, with its countries sorted as the language of the
// locale sorts. The entry without a code, for no choice, comes first.
[[nodiscard]] std::string SortedCountries(std::string_view list, std::string_view locale);

} // namespace brixen::pvn::pvn_workflow
