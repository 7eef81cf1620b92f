#include "workflow/controls/open_in_browser.h"

#include "workflow/platform/message_numbers.h"
#include "workflow/platform/pane_platform.h"
#include "workflow/resources/resource_layer.h"

namespace brixen::pvn::pvn_workflow {

void OpenInBrowser(const std::u16string& target) {
    platform::StartProgram(u"iexplore.exe", target.c_str(), kShowRestored);
}

void OpenLocalPage(const std::string& name) {
    const std::u16string path = FindLocalPage(name);
    if (!path.empty()) OpenInBrowser(path);
}

} // namespace brixen::pvn::pvn_workflow
