#include "toolkit/dialog/dialog_registry.h"

#include "toolkit/boxes/eve_box.h"
#include "toolkit/dialog_link.h"
#include "toolkit/toolkit_state.h"

#include <algorithm>

namespace brixen::zeve {

void RegisterDialog(DialogLink& dialog) { gToolkit.dialogs.push_back(&dialog); }

void UnregisterDialog(DialogLink& dialog) noexcept { std::erase(gToolkit.dialogs, &dialog); }

DialogLink* DialogOfWindow(NativeWindow window) noexcept {
    if (window == nullptr) return nullptr;
    const auto& dialogs = gToolkit.dialogs;
    const auto found = std::find_if(dialogs.begin(), dialogs.end(), [window](const DialogLink* dialog) {
        return dialog->rootBox != nullptr && dialog->rootBox->TopLevelWindow() == window;
    });
    return found != dialogs.end() ? *found : nullptr;
}

} // namespace brixen::zeve
