// One kind of resource: how it is loaded, and what is kept of it.
#pragma once

#include <cstdint>
#include <string>

namespace brixen::pvn::pvn_workflow {

// The locale text that stands for the language of the run.
inline constexpr const char* kDefaultLocale = "default_locale";

class PVNResourceHandler {
public:
    PVNResourceHandler() = default;
    PVNResourceHandler(const PVNResourceHandler&) = delete;
    PVNResourceHandler& operator=(const PVNResourceHandler&) = delete;
    virtual ~PVNResourceHandler() = default;

    // What comes back is the kind's own: a text, a bitmap handle, a mere sign of success. Null is failure.
    // The handler keeps the ownership.
    virtual void* Load(const std::string& name, const std::string& locale, std::uint32_t mode);
    virtual void Release(const std::string& name);
    virtual std::string Description() const = 0;
};

} // namespace brixen::pvn::pvn_workflow
