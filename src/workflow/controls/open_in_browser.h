// Opens pages for the user. A page that cannot be opened has no further consequence.
#pragma once

#include <string>

namespace brixen::pvn::pvn_workflow {

// `target` is a web address or the path of a local page.
void OpenInBrowser(const std::u16string& target);

// Opens NAME.html of the run's language, or of en_US. A missing page opens nothing.
void OpenLocalPage(const std::string& name);

} // namespace brixen::pvn::pvn_workflow
