#include "toolkit/platform/toolkit_platform.h"
#include "toolkit/platform/win32/handles.h"
#include "toolkit/platform/win32/isolation.h"

namespace brixen::zeve::platform {

namespace {

constexpr wchar_t kRichEdit[] = L"Riched20.DLL";
constexpr wchar_t kCommonControls[] = L"Comctl32.dll";

// The parameter of InitCommonControlsEx; the library does not link to it.
struct ControlClasses {
    DWORD size = sizeof(ControlClasses);
    DWORD classes = 2047; // all of the common controls
};

CommonControlsEntry FindCommonControlsEntry() noexcept {
    IsolationState& state = Isolation();
    if (state.initCommonControls != nullptr) return state.initCommonControls;
    if (state.commonControls == nullptr)
        state.commonControls = LoadLibraryExW(kCommonControls, nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
    if (state.commonControls == nullptr) return nullptr;
    const auto entry = reinterpret_cast<void*>(GetProcAddress(state.commonControls, "InitCommonControlsEx"));
    state.initCommonControls = reinterpret_cast<CommonControlsEntry>(entry);
    return state.initCommonControls;
}

} // namespace

NativeModule LibraryModule() noexcept { return Opaque(OwnModule()); }

NativeModule LoadRichEdit() noexcept {
    return Opaque(
        IsolatedCall([] { return LoadLibraryExW(kRichEdit, nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32); }));
}

void UnloadModule(NativeModule module) noexcept {
    if (module != nullptr) FreeLibrary(Handle(module));
}

void RegisterCommonControls() noexcept {
    IsolatedCall([] {
        const CommonControlsEntry entry = FindCommonControlsEntry();
        const ControlClasses request;
        return entry != nullptr ? entry(&request) : FALSE;
    });
}

} // namespace brixen::zeve::platform
