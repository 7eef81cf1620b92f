// What the native twin of the services' platform recorded.
#pragma once

#include <string>
#include <vector>

namespace brixen::pvn::platform::twin {

// The texts shown to the debugger, oldest first. A test empties it.
std::vector<std::string>& DebuggerTexts();

} // namespace brixen::pvn::platform::twin
