#include "workflow/resources/resource_manager.h"

#include "values/platform/values_platform.h"
#include "values/unicode/text_conversion.h"

namespace brixen::pvn::pvn_workflow {

using lyr::gen::ToUtf16;

ResourceState& TheResourceState() {
    static ResourceState state;
    return state;
}

PVNResourceManager& PVNResourceManager::Get() {
    ResourceState& state = TheResourceState();
    if (!state.manager) state.manager = std::make_unique<PVNResourceManager>();
    return *state.manager;
}

void PVNResourceManager::Destroy() { TheResourceState().manager.reset(); }

void PVNResourceManager::RegisterHandler(const std::string& type, PVNResourceHandler* handler) {
    handlers[type] = handler;
}

PVNResourceHandler* PVNResourceManager::RemoveHandler(const std::string& type) {
    const auto found = handlers.extract(type);
    return found ? found.mapped() : nullptr;
}

PVNResourceHandler* PVNResourceManager::HandlerOf(const std::string& type) const {
    const auto found = handlers.find(type);
    return found == handlers.end() ? nullptr : found->second;
}

void* PVNResourceManager::Load(const std::string& type, const std::string& name, const std::string& locale,
                               std::uint32_t mode) {
    PVNResourceHandler* handler = HandlerOf(type);
    return handler ? handler->Load(name, locale, mode) : nullptr;
}

void PVNResourceManager::Release(const std::string& type, const std::string& name) {
    if (PVNResourceHandler* handler = HandlerOf(type)) handler->Release(name);
}

PathUnits PVNResourceManager::FindInRoot(std::u16string_view file) const {
    PathBuffer path = root;
    path.Enter(file);
    return lyr::gen::FileExists(path.Text()) ? path.Copy() : nullptr;
}

PathUnits PVNResourceManager::FindResourceFile(const std::string& name, const std::string& extension,
                                               const std::string& locale, std::uint32_t mode) const {
    const std::u16string file = ToUtf16(name + "." + extension);
    const std::u16string folder = ToUtf16(locale == kDefaultLocale ? language : locale);
    if (mode == kSearchRoot) return FindInRoot(file);
    if (mode > kSearchLocaleThenEnUs) return nullptr;
    if (PathUnits path = FindInRoot(folder + u"\\" + file)) return path;
    if (mode == kSearchLocaleThenRoot) return FindInRoot(file);
    if (mode == kSearchLocaleThenEnUs && folder != u"en_US") return FindInRoot(u"en_US\\" + file);
    return nullptr;
}

void PVNResourceManager::SetRootIn(std::u16string_view folder) {
    root = PathBuffer(folder).Enter(u"PVResources");
}

} // namespace brixen::pvn::pvn_workflow
