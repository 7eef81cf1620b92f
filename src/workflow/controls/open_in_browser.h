// Opens pages for the user. What cannot be opened brings no message.
#pragma once

#include <string>

namespace brixen::pvn::pvn_workflow {

// `target` is a web address or the path of a local page.
void OpenInBrowser(const std::u16string& target);

// Opens NAME.html of the run's language, or of en_US. A page that is not found opens nothing.
void OpenLocalPage(const std::string& name);

} // namespace brixen::pvn::pvn_workflow
