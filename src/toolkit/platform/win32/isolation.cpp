#include "toolkit/platform/win32/isolation.h"

#include <new>

namespace brixen::zeve::platform {

namespace {

constexpr int kManifestResource = 3;
constexpr DWORD kLongestPath = 261; // characters
constexpr wchar_t kCommonControls[] = L"Comctl32.dll";

// The resource loader's errors from "no resource section" to "no such language".
bool IsNoManifest(DWORD error) {
    return error >= ERROR_RESOURCE_DATA_NOT_FOUND && error <= ERROR_RESOURCE_LANG_NOT_FOUND;
}

bool ReadOwnPath(HMODULE module, wchar_t (&path)[kLongestPath + 2]) noexcept {
    const DWORD length = GetModuleFileNameW(module, path, kLongestPath + 2);
    if (length > kLongestPath) SetLastError(ERROR_BUFFER_OVERFLOW);
    return length > 0 && length <= kLongestPath;
}

bool MakeContext(IsolationState& state) noexcept {
    wchar_t path[kLongestPath + 2];
    const HMODULE module = OwnModule();
    if (module == nullptr || !ReadOwnPath(module, path)) return false;
    ACTCTXW request = {};
    request.cbSize = sizeof request;
    request.dwFlags = ACTCTX_FLAG_RESOURCE_NAME_VALID | ACTCTX_FLAG_HMODULE_VALID;
    request.lpSource = path;
    request.lpResourceName = MAKEINTRESOURCEW(kManifestResource);
    request.hModule = module;
    const HANDLE made = CreateActCtxW(&request);
    if (made == INVALID_HANDLE_VALUE && !IsNoManifest(GetLastError())) return false;
    state.ownsContext = made != INVALID_HANDLE_VALUE;
    state.context = state.ownsContext ? made : nullptr;
    return true;
}

bool FindContext(IsolationState& state) noexcept {
    ACTIVATION_CONTEXT_BASIC_INFORMATION found = {};
    const auto address = reinterpret_cast<void*>(&PrepareIsolation);
    if (!QueryActCtxW(QUERY_ACTCTX_FLAG_ACTCTX_IS_ADDRESS | QUERY_ACTCTX_FLAG_NO_ADDREF, address, nullptr,
                      ActivationContextBasicInformation, &found, sizeof found, nullptr))
        return false;
    if (found.hActCtx == nullptr) return MakeContext(state);
    state.context = found.hActCtx;
    return true;
}

void LoadRedirectedControls(IsolationState& state) noexcept {
    const ActiveContext context;
    ACTCTX_SECTION_KEYED_DATA data = {};
    data.cbSize = sizeof data;
    if (!context.IsActive()) return;
    if (!FindActCtxSectionStringW(0, nullptr, ACTIVATION_CONTEXT_SECTION_DLL_REDIRECTION, kCommonControls,
                                  &data))
        return;
    // Without a path: the context selects the file.
    state.commonControls = LoadLibraryW(kCommonControls);
}

} // namespace

IsolationState::~IsolationState() {
    if (ownsContext) ReleaseActCtx(context);
}

IsolationState& Isolation() noexcept {
    static IsolationState gIsolation;
    return gIsolation;
}

void ResetIsolation() noexcept {
    IsolationState& state = Isolation();
    state.~IsolationState();
    new (&state) IsolationState();
}

HMODULE OwnModule() noexcept {
    HMODULE module = nullptr;
    GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                       reinterpret_cast<const wchar_t*>(&OwnModule), &module);
    return module;
}

bool PrepareIsolation() noexcept {
    IsolationState& state = Isolation();
    if (state.isCleanedUp) {
        OutputDebugStringA("IsolationAware function called after IsolationAwareCleanup\n");
        return true;
    }
    if (state.isInitialized) return true;
    if (!FindContext(state)) return false;
    LoadRedirectedControls(state);
    state.isInitialized = true;
    return true;
}

ActiveContext::ActiveContext() noexcept : isActive(ActivateActCtx(Isolation().context, &cookie) != FALSE) {}

ActiveContext::~ActiveContext() {
    if (isActive) DeactivateActCtx(0, cookie);
    if (keepsError) SetLastError(keptError);
}

void ActiveContext::KeepLastError() noexcept {
    keepsError = true;
    keptError = GetLastError();
}

} // namespace brixen::zeve::platform
