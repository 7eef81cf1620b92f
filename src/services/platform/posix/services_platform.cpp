#include "services/platform/services_platform.h"

#include "services/platform/posix/services_twin.h"

namespace brixen::pvn::platform {

std::vector<std::string>& twin::DebuggerTexts() {
    static std::vector<std::string> texts;
    return texts;
}

void WriteToDebugger(const char* text) noexcept {
    try {
        twin::DebuggerTexts().emplace_back(text);
    } catch (...) { // a debugger may miss a text
    }
}

} // namespace brixen::pvn::platform
