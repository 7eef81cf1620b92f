// Dictionaries of the workflows, BASE.zdct: from the locale's folder or from en_US, merged into the
// dictionary store.
#pragma once

#include "workflow/resources/resource_handler.h"

#include <map>
#include <set>

namespace brixen::pvn::pvn_workflow {

class PVNDictionaryHandler final : public PVNResourceHandler {
public:
    PVNDictionaryHandler();

    // `name` is a workflow's. Null for a name outside the catalogue and for a dictionary that is not there,
    // else some other pointer. A dictionary is read once in the handler's life. `mode` is ignored. What the
    // store makes of bad bytes is the store's: it throws.
    void* Load(const std::string& name, const std::string& locale, std::uint32_t mode) override;
    std::string Description() const override { return "Zstring Dictionary Resource"; }

private:
    bool LoadBase(const std::string& base, const std::string& locale);

    std::map<std::string, std::string> catalogue; // workflow name to dictionary base name
    std::set<std::string> loaded;                 // base names
};

} // namespace brixen::pvn::pvn_workflow
