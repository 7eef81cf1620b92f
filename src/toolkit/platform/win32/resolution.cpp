#include "toolkit/platform/toolkit_platform.h"

#include <windows.h>

#include <cstdint>

namespace brixen::zeve::platform {

namespace {

// The contexts, as the system numbers them. Older systems have neither, so the function is looked up.
constexpr std::intptr_t kUnaware = -1, kUnawareGdiScaled = -5;

using SetContextEntry = void*(WINAPI*)(void*);

SetContextEntry FindSetContext() noexcept {
    const HMODULE user = GetModuleHandleW(L"user32.dll");
    if (user == nullptr) return nullptr;
    const auto entry = reinterpret_cast<void*>(GetProcAddress(user, "SetThreadDpiAwarenessContext"));
    return reinterpret_cast<SetContextEntry>(entry);
}

} // namespace

NativeDpiContext SetDpiUnaware() noexcept {
    const SetContextEntry setContext = FindSetContext();
    if (setContext == nullptr) return nullptr;
    void* former = setContext(reinterpret_cast<void*>(kUnawareGdiScaled));
    if (former == nullptr) former = setContext(reinterpret_cast<void*>(kUnaware));
    return static_cast<NativeDpiContext>(former);
}

void RestoreDpi(NativeDpiContext former) noexcept {
    if (former == nullptr) return;
    if (const SetContextEntry setContext = FindSetContext()) setContext(former);
}

} // namespace brixen::zeve::platform
