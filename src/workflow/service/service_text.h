// Checks of the texts of a service, which may hold anything, before a user sees them.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace brixen::pvn::pvn_workflow {

// Whether a text may be shown: well-formed UTF-8, 1 to `longest` characters, one line, no control characters,
// and none that change the direction or the order of text.
[[nodiscard]] bool IsShowable(std::string_view text, std::size_t longest);

// Whether it is 1 to 32 letters, digits and `-` of ASCII.
[[nodiscard]] bool IsConfirmationNumber(std::string_view text);

// Returns the text for a static control, in which a single `&` would mark an access key: each is doubled.
[[nodiscard]] std::string TextForStatic(std::string_view text);

} // namespace brixen::pvn::pvn_workflow
