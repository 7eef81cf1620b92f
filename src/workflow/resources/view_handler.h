// View descriptions, NAME.exv: from the locale's folder or from the root.
#pragma once

#include "workflow/resources/resource_handler.h"

#include <optional>

namespace brixen::pvn::pvn_workflow {

class PVNViewHandler final : public PVNResourceHandler {
public:
    // The file's text, NUL-terminated (char*), valid until the next Load, whether that succeeds or not.
    // `mode` is ignored.
    void* Load(const std::string& name, const std::string& locale, std::uint32_t mode) override;
    std::string Description() const override { return "Zeve Express View Resource"; }

private:
    std::optional<std::string> text;
};

} // namespace brixen::pvn::pvn_workflow
