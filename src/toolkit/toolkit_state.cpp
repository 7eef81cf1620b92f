#include "toolkit/toolkit_state.h"

namespace brixen::zeve {

ToolkitState gToolkit;

void ResetToolkit() { gToolkit = ToolkitState(); }

} // namespace brixen::zeve
