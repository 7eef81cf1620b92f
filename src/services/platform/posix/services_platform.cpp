#include "services/platform/services_platform.h"

#include "services/platform/posix/services_twin.h"

namespace brixen::pvn {

ServicesTwin& GetServicesTwin() noexcept {
    static ServicesTwin twin;
    return twin;
}

void ResetServicesTwin() noexcept { GetServicesTwin() = {}; }

void WriteToDebugger(const char* text) noexcept {
    try {
        GetServicesTwin().debuggerTexts.emplace_back(text);
    } catch (...) { // a debugger may miss a text
    }
}

} // namespace brixen::pvn
