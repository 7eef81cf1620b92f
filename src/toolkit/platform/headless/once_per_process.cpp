#include "toolkit/platform/headless/headless.h"

namespace brixen::zeve::platform {

using headless::HandleNumber;
using headless::Record;
using headless::State;

namespace {

const NativeModule kLibrary = reinterpret_cast<NativeModule>(std::uintptr_t(0x400));
const NativeModule kRichEdit = reinterpret_cast<NativeModule>(std::uintptr_t(0x800));

} // namespace

NativeModule LibraryModule() noexcept {
    Record("LibraryModule");
    return kLibrary;
}

NativeModule LoadRichEdit() noexcept {
    Record("LoadRichEdit");
    if (headless::Refuses(State().refuseRichEdit)) return nullptr;
    ++State().richEditLoads;
    return kRichEdit;
}

void UnloadModule(NativeModule module) noexcept {
    Record("UnloadModule", nullptr, {HandleNumber(module)});
    if (module == kRichEdit) --State().richEditLoads;
}

void RegisterCommonControls() noexcept { Record("RegisterCommonControls"); }

} // namespace brixen::zeve::platform
