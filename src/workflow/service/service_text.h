// Checks of texts that may hold anything, such as those of a service, before a user sees them.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace brixen::pvn::pvn_workflow {

// Whether a text may be shown: well-formed UTF-8, 1 to `longest` characters, one line, no control characters,
// and none that hide text or change its direction or order. Characters that only shape ordinary text are
// fine: joiners, soft hyphens, and selectors of variants.
[[nodiscard]] bool IsShowable(std::string_view text, std::size_t longest);

// Returns the text as one line in which nothing hides or reorders the rest: a blank for each tab and line
// break, and U+FFFD for each other character that IsShowable refuses and for half a surrogate pair.
[[nodiscard]] std::u16string NeutralLine(std::u16string_view text);

// Whether it is 1 to 32 letters, digits and `-` of ASCII.
[[nodiscard]] bool IsConfirmationNumber(std::string_view text);

// Returns the text for a static control, in which a single `&` would mark an access key: each is doubled.
[[nodiscard]] std::string TextForStatic(std::string_view text);

} // namespace brixen::pvn::pvn_workflow
