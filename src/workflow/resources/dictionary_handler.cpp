#include "workflow/resources/dictionary_handler.h"

#include "dictionaries/translation.h"
#include "toolkit/dialog/zeve_dialog.h"
#include "values/platform/values_platform.h"
#include "workflow/resources/resource_manager.h"

namespace brixen::pvn::pvn_workflow {

PVNDictionaryHandler::PVNDictionaryHandler()
    : catalogue{{"Welcome", "guide"},
                {"Privacy", "guide"},
                {"Registration", "service"},
                {"Connection", "service"},
                {"Feedback", "service"}} {}

void* PVNDictionaryHandler::Load(const std::string& name, const std::string& locale, std::uint32_t) {
    zeve::ZeveInitialize();
    const auto found = catalogue.find(name);
    return found != catalogue.end() && LoadBase(found->second, locale) ? this : nullptr;
}

bool PVNDictionaryHandler::LoadBase(const std::string& base, const std::string& locale) {
    if (loaded.count(base) != 0) return true;
    const PathUnits path =
        PVNResourceManager::Get().FindResourceFile(base, "zdct", locale, kSearchLocaleThenEnUs);
    if (!path) return false;
    const std::optional<std::string> bytes = lyr::gen::ReadWholeFile(path.get());
    if (!bytes) return false;
    zeve::PopulateDictionary(bytes->data(), static_cast<std::int64_t>(bytes->size()));
    loaded.insert(base);
    return true;
}

} // namespace brixen::pvn::pvn_workflow
