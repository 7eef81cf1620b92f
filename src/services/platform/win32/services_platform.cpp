#include "services/platform/services_platform.h"

#include <windows.h>

namespace brixen::pvn {

void WriteToDebugger(const char* text) noexcept { OutputDebugStringA(text); }

} // namespace brixen::pvn
