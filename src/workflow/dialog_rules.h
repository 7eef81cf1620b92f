// What pane hosts and alerts do alike.
#pragma once

#include "toolkit/platform/native_types.h"

#include <string_view>

namespace brixen::pvn::pvn_workflow {

// Only these two languages turn on right-to-left layout; for all others the toolkit is told none.
bool IsRightToLeft(std::string_view language);

// Gives the focus to the dialog's default button, else to its first plain button, else to its first child.
void FocusDefaultButton(zeve::NativeWindow window);

} // namespace brixen::pvn::pvn_workflow
