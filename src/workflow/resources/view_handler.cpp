#include "workflow/resources/view_handler.h"

#include "values/platform/values_platform.h"

namespace brixen::pvn::pvn_workflow {

void* PVNViewHandler::Load(const std::string& name, const std::string& locale, std::uint32_t) {
    text.reset();
    const PathUnits path =
        PVNResourceManager::Get().FindResourceFile(name, "exv", locale, kSearchLocaleThenRoot);
    if (path) text = lyr::gen::ReadWholeFile(path.get());
    return text ? text->data() : nullptr;
}

} // namespace brixen::pvn::pvn_workflow
