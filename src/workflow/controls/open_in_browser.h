// Opens pages for the user. A page that cannot be opened has no further consequence.
#pragma once

#include <string>
#include <string_view>

namespace brixen::pvn {
class T_StorageInterface;
}

namespace brixen::pvn::pvn_workflow {

// `target` is a web address or the path of a local page. Anything that IsOpenable refuses opens nothing.
// Where the browser "iexplore.exe" does not start, the user's own program opens the target.
void OpenInBrowser(const std::u16string& target);

// Opens the web address that the context has as a text under that key.
void OpenContextAddress(T_StorageInterface& context, std::string_view key);
// Opens the web address that is the dictionary's text for that key, of at most 1023 bytes in the code page of
// the machine.
void OpenTextAddress(std::string_view key);
// Opens NAME.html of the run's language, or of en_US. A missing page opens nothing.
void OpenLocalPage(const std::string& name);

} // namespace brixen::pvn::pvn_workflow
