#include "workflow/resources/resource_layer.h"

#include "frame/log.h"
#include "toolkit/dialog/zeve_dialog.h"
#include "values/scope_guard.h"
#include "values/unicode/text_conversion.h"
#include "workflow/resources/bitmap_handler.h"
#include "workflow/resources/dictionary_handler.h"
#include "workflow/resources/privacy_statement_handler.h"
#include "workflow/resources/resource_manager.h"
#include "workflow/resources/view_handler.h"

#include <memory>
#include <new>
#include <stdexcept>

namespace brixen::pvn::pvn_workflow {

namespace {

const std::string kTypeView = "Resource_Type_Exvw";
const std::string kTypeDictionary = "Resource_Type_Zdct";
const std::string kTypeBitmap = "Resource_Type_Bitmap";
const std::string kTypeStatement = "Resource_Type_Privstat";

// Destroys the handlers in the order of their registration, each after the manager has forgotten it.
void TearDown() {
    ResourceState& state = TheResourceState();
    state.statements = nullptr;
    for (auto& [type, handler] : state.handlers) {
        PVNResourceManager::Get().RemoveHandler(type);
        handler.reset();
    }
    state.handlers.clear();
    state.foundPages.clear();
    state.localeOfWords.clear();
    PVNResourceManager::Destroy();
    state.isSetUp = false;
}

template <class Handler>
Handler* AddHandler(const std::string& type) {
    auto owned = std::make_unique<Handler>();
    Handler* const handler = owned.get();
    TheResourceState().handlers.push_back({type, std::move(owned)});
    PVNResourceManager::Get().RegisterHandler(type, handler);
    return handler;
}

void SetUp(const std::string& language) {
    AddHandler<PVNViewHandler>(kTypeView);
    AddHandler<PVNDictionaryHandler>(kTypeDictionary);
    AddHandler<PVNBitmapHandler>(kTypeBitmap);
    TheResourceState().statements = AddHandler<PVNPrivacyStatementHandler>(kTypeStatement);
    PVNResourceManager::Get().SetLanguage(language);
    SetResourceRootToLibrary();
    TheResourceState().isSetUp = true;
}

void LogMissing(const char* kind, const std::string& name) {
    PvnLog("%s: %s: Missing Resource(Type: %s, Name: %s)\n", kLogComponent, kLogInfo, kind, name.c_str());
}

[[noreturn]] void FailMissing(const char* kind, const std::string& name) {
    LogMissing(kind, name);
    throw std::runtime_error("missing resource");
}

} // namespace

void SelectLanguage(const std::string& language) {
    zeve::ZeveInitialize();
    if (TheResourceState().isSetUp) return;
    try {
        SetUp(language);
    } catch (...) {
        TearDown();
        throw;
    }
}

void ShutDownResources() {
    if (TheResourceState().isSetUp) TearDown();
}

std::string LoadViewDescription(const std::string& name) {
    const void* text = PVNResourceManager::Get().Load(kTypeView, name, kDefaultLocale, 0);
    if (!text) FailMissing("Exvw", name);
    return static_cast<const char*>(text);
}

std::string FindViewDescription(const std::string& name) {
    const PathUnits path =
        PVNResourceManager::Get().FindResourceFile(name, "exv", kDefaultLocale, kSearchLocaleThenRoot);
    return path ? lyr::gen::ToUtf8(path.get(), true) : std::string();
}

void LoadWorkFlowDictionary(const std::string& name) {
    if (!PVNResourceManager::Get().Load(kTypeDictionary, name, kDefaultLocale, 1)) FailMissing("Zdct", name);
}

const std::string& LocaleOfWords() { return TheResourceState().localeOfWords; }

zeve::NativeBitmap LoadBitmapResource(const std::string& name, std::uint32_t mode) {
    void* bitmap = PVNResourceManager::Get().Load(kTypeBitmap, name, kDefaultLocale, mode);
    if (!bitmap) LogMissing("Bitmap", name);
    return static_cast<zeve::NativeBitmap>(bitmap);
}

void ReleaseBitmapResource(const char* name) noexcept try {
    PVNResourceManager::Get().Release(kTypeBitmap, name);
} catch (const std::bad_alloc&) {
    // See the header.
}

std::u16string FindLocalPage(const std::string& name) {
    const PathUnits path =
        PVNResourceManager::Get().FindResourceFile(name, "html", kDefaultLocale, kSearchLocaleThenEnUs);
    if (!path) return {};
    TheResourceState().foundPages.insert(path.get());
    return path.get();
}

bool WasPageFound(const std::u16string& path) { return TheResourceState().foundPages.contains(path); }

std::vector<StatementLanguage> PrivacyStatementLanguages() {
    PVNPrivacyStatementHandler* const handler = TheResourceState().statements;
    if (!handler) return {};
    const PVNPrivacyList& list = handler->Languages();
    std::vector<StatementLanguage> languages;
    for (const std::string& language : list.Languages()) {
        languages.push_back({language, list.Find(language).LANGNAME});
    }
    return languages;
}

std::u16string LoadPrivacyStatement(const std::string& language) {
    PVNResourceManager& manager = PVNResourceManager::Get();
    const void* loaded = manager.Load(kTypeStatement, "", language, 0);
    if (!loaded) return {};
    const ScopeGuard release([&manager]() noexcept { manager.Release(kTypeStatement, ""); });
    return static_cast<const char16_t*>(loaded);
}

void SetResourceRootToLibrary() { PVNResourceManager::Get().SetRootIn(platform::LibraryFolder()); }

void SetResourceRootBelow(const std::string& folder) {
    PVNResourceManager::Get().SetRootIn(lyr::gen::ToUtf16(folder));
}

} // namespace brixen::pvn::pvn_workflow
