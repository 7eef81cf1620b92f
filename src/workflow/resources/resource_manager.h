// Finds the files of PVResources for the language of the run, and holds the handler of each kind of resource
// under the kind's type name.
//
//   PVResources/            what does not depend on language
//   PVResources/<locale>/   what does, the locale as in "en_US"
#pragma once

#include "workflow/resources/path_buffer.h"

#include <cstdint>
#include <map>
#include <memory>
#include <mutex>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace brixen::pvn::pvn_workflow {

// The locale text that means the language of the run.
inline constexpr const char* kDefaultLocale = "default_locale";

// One kind of resource: how it is loaded, and what is kept of it.
class PVNResourceHandler {
public:
    PVNResourceHandler() = default;
    PVNResourceHandler(const PVNResourceHandler&) = delete;
    PVNResourceHandler& operator=(const PVNResourceHandler&) = delete;
    virtual ~PVNResourceHandler() = default;

    // Returns what the kind documents: a text, a bitmap handle, a mere sign of success. Null means failure.
    // The handler keeps the ownership. The base loads nothing.
    virtual void* Load(const std::string&, const std::string&, std::uint32_t) { return nullptr; }
    // Frees what was loaded under `name`. The base frees nothing.
    virtual void Release(const std::string&) {}
    virtual std::string Description() const = 0;
};

// Where FindResourceFile looks, in this order.
enum ResourceSearch : std::uint32_t {
    kSearchRoot = 0,           // the root
    kSearchLocale = 1,         // the folder of the locale
    kSearchLocaleThenRoot = 2, // the folder of the locale, then the root; never en_US
    kSearchLocaleThenEnUs = 3, // the folder of the locale, then en_US; never the root
};

class PVNPrivacyStatementHandler;

class PVNResourceManager {
public:
    // Returns the one manager of the process, made at the first call.
    static PVNResourceManager& Get();
    // Destroys the manager. The handlers, which it borrows, stay.
    static void Destroy();

    // Borrows the handler until RemoveHandler or Destroy. An earlier handler of the type is forgotten.
    void RegisterHandler(const std::string& type, PVNResourceHandler* handler);
    // Forgets the handler and returns it, or null for an unknown type.
    PVNResourceHandler* RemoveHandler(const std::string& type);
    // Returns the handler of a type, or null.
    PVNResourceHandler* HandlerOf(const std::string& type) const;

    // Returns the handler's answer, or null for an unknown type.
    void* Load(const std::string& type, const std::string& name, const std::string& locale,
               std::uint32_t mode);
    // Does nothing for an unknown type.
    void Release(const std::string& type, const std::string& name);

    // Returns the path of an existing file, or null. kDefaultLocale means the language of the run. `mode` is
    // a ResourceSearch; any other number finds nothing.
    PathUnits FindResourceFile(const std::string& name, const std::string& extension,
                               const std::string& locale, std::uint32_t mode) const;
    // The same for a path below the root, extension included.
    PathUnits FindInRoot(std::u16string_view file) const;

    // Sets the language that kDefaultLocale means.
    void SetLanguage(const std::string& newLanguage) { language = newLanguage; }
    // Sets the root to `folder`\PVResources.
    void SetRootIn(std::u16string_view folder);

private:
    std::map<std::string, PVNResourceHandler*> handlers; // borrowed
    std::string language;
    PathBuffer root; // without a separator at its end
};

// The process-wide state of the resource layer. ShutDownResources empties it.
struct ResourceState {
    std::unique_ptr<PVNResourceManager> manager;
    struct OwnedHandler {
        std::string type;
        std::unique_ptr<PVNResourceHandler> handler;
    };
    std::vector<OwnedHandler> handlers;               // of the run, in the order of registration
    PVNPrivacyStatementHandler* statements = nullptr; // one of them, or null
    bool isSetUp = false;
    std::string localeOfWords;           // see LocaleOfWords
    std::set<std::u16string> foundPages; // paths, see WasPageFound
    std::mutex decoderLock; // guards decoderUsers: handlers may be on other threads of the application
    int decoderUsers = 0;
};

ResourceState& TheResourceState();

} // namespace brixen::pvn::pvn_workflow
