#include "workflow/resources/dictionary_handler.h"

#include "dictionaries/translation.h"
#include "values/platform/values_platform.h"
#include "values/unicode/text_conversion.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <string_view>

namespace brixen::pvn::pvn_workflow {

namespace {

// A workflow joins the dictionaries by its row here.
constexpr struct {
    std::string_view workflow;
    const char* base; // name of the dictionary's file, without extension
} kDictionaries[] = {
    {"Welcome", "guide"},      {"Privacy", "guide"},    {"Registration", "service"},
    {"Connection", "service"}, {"Feedback", "service"},
};

// Returns the name of the folder that holds the file.
std::string FolderOf(std::u16string_view path) {
    path = path.substr(0, path.rfind(u'\\'));
    return lyr::gen::ToUtf8(path.substr(path.rfind(u'\\') + 1));
}

} // namespace

void* PVNDictionaryHandler::Load(const std::string& name, const std::string& locale, std::uint32_t) {
    const auto* row =
        std::ranges::find(kDictionaries, name, [](const auto& entry) { return entry.workflow; });
    return row != std::end(kDictionaries) && LoadBase(row->base, locale) ? this : nullptr;
}

bool PVNDictionaryHandler::LoadBase(const std::string& base, const std::string& locale) {
    if (loaded.contains(base)) return true;
    const PathUnits path =
        PVNResourceManager::Get().FindResourceFile(base, "zdct", locale, kSearchLocaleThenEnUs);
    if (!path) return false;
    const std::optional<std::string> bytes = lyr::gen::ReadWholeFile(path.get());
    if (!bytes) return false;
    zeve::PopulateDictionary(bytes->data(), static_cast<std::int64_t>(bytes->size()));
    TheResourceState().localeOfWords = FolderOf(path.get());
    loaded.insert(base);
    return true;
}

} // namespace brixen::pvn::pvn_workflow
