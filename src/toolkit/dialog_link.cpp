#include "toolkit/dialog_link.h"

#include "toolkit/eve_box.h"

#include <algorithm>

namespace brixen::zeve {

namespace {

std::vector<DialogLink*> gRegistry; // newest last

DialogLink* FirstDialog(auto matches) {
    const auto found = std::find_if(gRegistry.begin(), gRegistry.end(), matches);
    return found != gRegistry.end() ? *found : nullptr;
}

} // namespace

void RegisterDialog(DialogLink& dialog) { gRegistry.push_back(&dialog); }

void UnregisterDialog(DialogLink& dialog) noexcept { std::erase(gRegistry, &dialog); }

DialogLink* DialogOfWindow(NativeWindow window) noexcept {
    if (window == nullptr) return nullptr;
    return FirstDialog([window](const DialogLink* dialog) {
        return dialog->rootBox != nullptr && dialog->rootBox->TopLevelWindow() == window;
    });
}

DialogLink* LiveDialog(std::int64_t reference) noexcept {
    return FirstDialog([reference](const DialogLink* dialog) {
        return static_cast<std::int64_t>(reinterpret_cast<std::intptr_t>(dialog)) == reference;
    });
}

} // namespace brixen::zeve
