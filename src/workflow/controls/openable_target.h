// What may be opened for the user: web addresses, mail addresses, and local pages that were found.
#pragma once

#include <string>
#include <string_view>

namespace brixen::pvn::pvn_workflow {

// Returns whether the text begins with `http:`, `https:` or `mailto:`, in either case, has more than that,
// and holds no blank, quote, control or non-ASCII character.
bool IsWebAddress(std::u16string_view address);

// Returns whether the target is a web address or the path of a page that FindLocalPage found in this run.
bool IsOpenable(const std::u16string& target);

} // namespace brixen::pvn::pvn_workflow
