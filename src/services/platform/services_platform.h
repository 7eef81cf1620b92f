// What the service loader needs of the system.
#pragma once

namespace brixen::pvn::platform {

// Shows a text to a debugger that watches the process, if there is one.
void WriteToDebugger(const char* text) noexcept;

} // namespace brixen::pvn::platform
