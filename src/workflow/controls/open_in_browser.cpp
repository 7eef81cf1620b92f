#include "workflow/controls/open_in_browser.h"

#include "workflow/platform/pane_platform.h"
#include "workflow/resources/resource_manager.h"

namespace brixen::pvn::pvn_workflow {

namespace {

constexpr std::int32_t kShowRestored = 9;

} // namespace

void OpenInBrowser(const std::u16string& target) {
    platform::StartProgram(u"iexplore.exe", target.c_str(), kShowRestored);
}

void OpenLocalPage(const std::string& name) {
    const PathUnits path =
        PVNResourceManager::Get().FindResourceFile(name, "html", "default_locale", kSearchLocaleThenEnUs);
    if (path) OpenInBrowser(path.get());
}

} // namespace brixen::pvn::pvn_workflow
