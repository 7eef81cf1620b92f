// Calls inside the library's own activation context, so that its controls come from the assembly that
// manifest resource 3 of the library names, whatever the process has. One thread.
#pragma once

#include <windows.h>

namespace brixen::zeve::platform {

using CommonControlsEntry = BOOL(WINAPI*)(const void*);

// What isolation keeps for the process.
struct IsolationState {
    bool isInitialized = false;
    bool isCleanedUp = false; // nothing of the library sets it; calls then go on with the context as it is
    HANDLE context = INVALID_HANDLE_VALUE; // null: none
    bool ownsContext = false;
    HMODULE commonControls = nullptr;                 // stays loaded: its window classes are registered
    CommonControlsEntry initCommonControls = nullptr; // cached

    IsolationState() = default;
    IsolationState(const IsolationState&) = delete;
    IsolationState& operator=(const IsolationState&) = delete;
    ~IsolationState();
};

IsolationState& Isolation() noexcept;
// For tests: as before the first call.
void ResetIsolation() noexcept;

// Finds or makes the context, once; false, with the last error set, if that fails. The next call tries again.
bool PrepareIsolation() noexcept;
// The module that this code is in; null if the system does not tell.
HMODULE OwnModule() noexcept;

// Inside the context for as long as it lives.
class ActiveContext {
public:
    ActiveContext() noexcept;
    ActiveContext(const ActiveContext&) = delete;
    ActiveContext& operator=(const ActiveContext&) = delete;
    ~ActiveContext();
    [[nodiscard]] bool IsActive() const noexcept { return isActive; }
    // Leaving the context then does not change the last error.
    void KeepLastError() noexcept;

private:
    ULONG_PTR cookie = 0;
    bool isActive = false, keepsError = false;
    DWORD keptError = 0;
};

// Makes `call` inside the context. A null or false result, also of an isolation that fails, leaves its reason
// as the last error. Throws what the call throws.
template <class Call>
auto IsolatedCall(Call call) {
    using Result = decltype(call());
    if (!PrepareIsolation()) return Result();
    ActiveContext context;
    if (!context.IsActive()) return Result();
    const Result result = call();
    if (!result) context.KeepLastError();
    return result;
}

} // namespace brixen::zeve::platform
