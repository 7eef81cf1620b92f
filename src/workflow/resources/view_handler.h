// View descriptions, NAME.exv: from the locale's folder or from the root.
#pragma once

#include "workflow/resources/resource_manager.h"

#include <optional>
#include <string>

namespace brixen::pvn::pvn_workflow {

class PVNViewHandler final : public PVNResourceHandler {
public:
    // Returns the file's text, NUL-terminated (char*), or null. The text is valid until the next Load, even
    // one that fails. `mode` is ignored.
    void* Load(const std::string& name, const std::string& locale, std::uint32_t mode) override;
    std::string Description() const override { return "Zeve Express View Resource"; }

private:
    std::optional<std::string> text;
};

} // namespace brixen::pvn::pvn_workflow
