// What the service loader asks of the system.
#pragma once

namespace brixen::pvn {

// Shows a text to the debugger of the process, if there is one. Any thread.
void WriteToDebugger(const char* text) noexcept;

} // namespace brixen::pvn
