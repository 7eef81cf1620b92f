// Knows the layout of PVResources and the language, and answers one question: which path holds this name with
// this extension for this locale. Keeps a handler for each kind of resource under the kind's type name.
//
//   PVResources/            what does not depend on language
//   PVResources/<locale>/   what does, the locale as in "en_US"
#pragma once

#include "workflow/resources/path_buffer.h"

#include <cstdint>
#include <map>
#include <string>
#include <string_view>

namespace brixen::pvn::pvn_workflow {

class PVNResourceHandler;

// Where FindResourceFile looks, in this order. `locale` is the one that is asked for.
enum ResourceSearch : std::uint32_t {
    kSearchRoot = 0,           // the root
    kSearchLocale = 1,         // the locale
    kSearchLocaleThenRoot = 2, // the locale, then the root; never en_US
    kSearchLocaleThenEnUs = 3, // the locale, then en_US; never the root
};

class PVNResourceManager {
public:
    // The one manager, made at the first call.
    static PVNResourceManager& Get();
    // Ends its life; the handlers, which it does not own, stay.
    static void Destroy();

    void RegisterHandler(const std::string& type, PVNResourceHandler* handler);
    // Forgets the handler and gives it back, or null for an unknown type.
    PVNResourceHandler* RemoveHandler(const std::string& type);
    // The handler of a type, or null.
    PVNResourceHandler* HandlerOf(const std::string& type) const;

    // The handler's answer, or null for an unknown type.
    void* Load(const std::string& type, const std::string& name, const std::string& locale,
               std::uint32_t mode);
    void Release(const std::string& type, const std::string& name);

    // The path of an existing file, or null. "default_locale" stands for the language; an unknown mode finds
    // nothing.
    PathUnits FindResourceFile(const std::string& name, const std::string& extension,
                               const std::string& locale, std::uint32_t mode) const;
    // The same for a path below the root, with its extension.
    PathUnits FindInRoot(std::u16string_view file) const;

    // What "default_locale" stands for.
    void SetLanguage(const std::string& newLanguage) { language = newLanguage; }
    // `folder` is the one that holds PVResources.
    void SetRootIn(std::u16string_view folder);

private:
    std::map<std::string, PVNResourceHandler*> handlers; // not owned
    std::string language;
    PathBuffer root; // without a separator at its end
};

} // namespace brixen::pvn::pvn_workflow
