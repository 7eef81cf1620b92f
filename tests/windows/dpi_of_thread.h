// The resolution contexts of this thread and its windows, as the system itself reports it. Older systems have
// none, so its functions are looked up.
#pragma once

#include <windows.h>

#include <cstdint>

namespace pavane_test {

inline void* CallOfUser32(const char* name) {
    return reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"user32.dll"), name));
}

inline void* SetDpiContext(void* context) {
    const auto set = reinterpret_cast<void*(WINAPI*)(void*)>(CallOfUser32("SetThreadDpiAwarenessContext"));
    return set(context);
}

// What a thread or a window knows of resolutions: nothing, that of the system, or that of each screen.
enum class DpiAwareness { kUnaware = 0, kSystem = 1, kPerMonitor = 2 };

inline DpiAwareness DpiAwarenessIn(void* context) {
    const auto read =
        reinterpret_cast<int(WINAPI*)(void*)>(CallOfUser32("GetAwarenessFromDpiAwarenessContext"));
    return static_cast<DpiAwareness>(read(context));
}

inline DpiAwareness DpiAwarenessOfThread() {
    const auto get = reinterpret_cast<void*(WINAPI*)()>(CallOfUser32("GetThreadDpiAwarenessContext"));
    return DpiAwarenessIn(get());
}

// That of the thread when the window was made. While its procedure is called, the thread has it again.
inline DpiAwareness DpiAwarenessOf(HWND window) {
    const auto get = reinterpret_cast<void*(WINAPI*)(HWND)>(CallOfUser32("GetWindowDpiAwarenessContext"));
    return DpiAwarenessIn(get(window));
}

// A host that knows the resolution of each screen, for as long as this lives.
class PerMonitorAwareHost {
public:
    PerMonitorAwareHost() : former(SetDpiContext(reinterpret_cast<void*>(std::intptr_t(-3)))) {}
    PerMonitorAwareHost(const PerMonitorAwareHost&) = delete;
    PerMonitorAwareHost& operator=(const PerMonitorAwareHost&) = delete;
    ~PerMonitorAwareHost() { SetDpiContext(former); }

private:
    void* former;
};

} // namespace pavane_test
