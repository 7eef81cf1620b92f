#include "toolkit/dialog_link.h"

#include "toolkit/eve_box.h"

#include <algorithm>

namespace brixen::zeve {

namespace {

std::vector<DialogLink*> gRegistry; // newest last

} // namespace

void RegisterDialog(DialogLink& dialog) { gRegistry.push_back(&dialog); }

void UnregisterDialog(DialogLink& dialog) noexcept { std::erase(gRegistry, &dialog); }

DialogLink* DialogOfWindow(NativeWindow window) noexcept {
    if (window == nullptr) return nullptr;
    const auto found = std::find_if(gRegistry.begin(), gRegistry.end(), [window](const DialogLink* dialog) {
        return dialog->rootBox != nullptr && dialog->rootBox->TopLevelWindow() == window;
    });
    return found != gRegistry.end() ? *found : nullptr;
}

} // namespace brixen::zeve
