// Calls inside the library's own activation context. Its controls are those of the assembly that manifest
// resource 3 of the library names, whatever the process has. For one thread.
#pragma once

#include <windows.h>

namespace brixen::zeve::platform {

using CommonControlsEntry = BOOL(WINAPI*)(const void*);

// The state of isolation, one per process.
struct IsolationState {
    bool isInitialized = false;
    bool isCleanedUp = false; // the library never sets it; if set, calls use the context as it is
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
// Resets the state, for tests.
void ResetIsolation() noexcept;

// Finds or makes the context, once. Returns false and sets the last error if that fails; the next call tries
// again.
[[nodiscard]] bool PrepareIsolation() noexcept;
// Returns the module that holds this code; null if the system does not find it.
[[nodiscard]] HMODULE OwnModule() noexcept;

// Activates the context for as long as this lives.
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

// Makes `call` inside the context and returns its result; null or false if the isolation fails. The last
// error is the reason of a null or false result. Throws what the call throws.
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
