// The native twin of the services' platform: it records what the debugger was shown.
#pragma once

#include <string>
#include <vector>

namespace brixen::pvn {

struct ServicesTwin {
    std::vector<std::string> debuggerTexts; // oldest first
};

[[nodiscard]] ServicesTwin& GetServicesTwin() noexcept;
void ResetServicesTwin() noexcept;

} // namespace brixen::pvn
