// Dictionaries of the workflows, BASE.zdct: from the locale's folder or from en_US, merged into the
// dictionary store.
#pragma once

#include "workflow/resources/resource_manager.h"

#include <set>
#include <string>

namespace brixen::pvn::pvn_workflow {

class PVNDictionaryHandler final : public PVNResourceHandler {
public:
    // `name` is that of a workflow. Returns null for an unknown workflow and for a missing dictionary, and
    // any other pointer on success. A dictionary is read once in the handler's life. `mode` is ignored.
    // Throws what the dictionary store throws for damaged bytes. The toolkit must be initialized.
    void* Load(const std::string& name, const std::string& locale, std::uint32_t mode) override;
    std::string Description() const override { return "Zstring Dictionary Resource"; }

private:
    bool LoadBase(const std::string& base, const std::string& locale);

    std::set<std::string> loaded; // base names
};

} // namespace brixen::pvn::pvn_workflow
