#include "services/platform/services_platform.h"

#include "values/platform/values_platform.h"
#include "values/unicode/platform/win32/wide.h"
#include "values/unicode/text_conversion.h"

#include <windows.h>

#include <direct.h>
#include <stdlib.h>

#include <string_view>

namespace brixen::pvn {
namespace {

using lyr::gen::Wide;

constexpr std::size_t kUnits = kServicePathLimit + 1; // with the terminator

// Empty for bytes that are no UTF-8, which name no file.
std::u16string FromUtf8(const std::string& text) try {
    return lyr::gen::ToUtf16(text);
} catch (const lyr::gen::illegal_utf_sequence&) {
    return {};
}

// An unpaired surrogate becomes U+FFFD, so that the result is legal; it names no file then.
std::string FromWide(const wchar_t* text) {
    const std::u16string_view wide = reinterpret_cast<const char16_t*>(text);
    const auto convert = [&](char* output, std::size_t capacity) {
        return lyr::gen::WideToCodePage(lyr::gen::kCodePageUtf8, wide, output, capacity).length;
    };
    std::string utf8(convert(nullptr, 0), '\0');
    utf8.resize(convert(utf8.data(), utf8.size()));
    return utf8;
}

// While it lives, the system shows the user no message about a file that it cannot load on this thread.
class QuietThread {
public:
    QuietThread() noexcept {
        isSet = SetThreadErrorMode(GetThreadErrorMode() | SEM_FAILCRITICALERRORS | SEM_NOOPENFILEERRORBOX,
                                   &formerMode);
    }
    ~QuietThread() {
        if (isSet) SetThreadErrorMode(formerMode, nullptr);
    }
    QuietThread(const QuietThread&) = delete;
    QuietThread& operator=(const QuietThread&) = delete;

private:
    DWORD formerMode = 0;
    BOOL isSet = FALSE;
};

class FolderHandle {
public:
    explicit FolderHandle(const wchar_t* path) noexcept
        : handle(CreateFileW(path, 0, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                             OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr)) {}
    ~FolderHandle() {
        if (handle != INVALID_HANDLE_VALUE) CloseHandle(handle);
    }
    FolderHandle(const FolderHandle&) = delete;
    FolderHandle& operator=(const FolderHandle&) = delete;

    // Returns false if there is no such path, or if it does not fit.
    [[nodiscard]] bool GetFinalPath(wchar_t (&path)[kUnits]) const noexcept {
        if (handle == INVALID_HANDLE_VALUE) return false;
        const DWORD length = GetFinalPathNameByHandleW(handle, path, kUnits, FILE_NAME_NORMALIZED);
        return length > 0 && length < kUnits;
    }

private:
    HANDLE handle;
};

bool IsRemoteDrive(const wchar_t* path) noexcept {
    wchar_t root[kUnits] = {};
    return GetVolumePathNameW(path, root, kUnits) && GetDriveTypeW(root) == DRIVE_REMOTE;
}

} // namespace

void WriteToDebugger(const char* text) noexcept { OutputDebugStringA(text); }

std::uint32_t CurrentThreadNumber() noexcept { return GetCurrentThreadId(); }

std::string ModuleFile() {
    HMODULE module = nullptr;
    const DWORD flags = GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT;
    if (!GetModuleHandleExW(flags, reinterpret_cast<LPCWSTR>(&ModuleFile), &module)) return {};
    wchar_t path[kUnits] = {};
    const DWORD length = GetModuleFileNameW(module, path, kUnits);
    return length < kUnits ? FromWide(path) : std::string(); // a path that fills the buffer is cut
}

std::string WorkingDirectory() {
    wchar_t path[kUnits] = {};
    return _wgetcwd(path, kUnits) ? FromWide(path) : std::string();
}

std::string ResolvePath(const std::string& path) {
    const std::u16string wide = FromUtf8(path);
    wchar_t resolved[kUnits] = {};
    return !wide.empty() && _wfullpath(resolved, Wide(wide.c_str()), kUnits) ? FromWide(resolved)
                                                                             : std::string();
}

bool IsExistingFile(const std::string& path) {
    const std::u16string wide = FromUtf8(path);
    return !wide.empty() && lyr::gen::FileExists(wide);
}

FolderPlace PlaceOf(const std::string& folder) {
    const std::u16string wide = FromUtf8(folder);
    wchar_t path[kUnits] = {};
    if (wide.empty() || !FolderHandle(Wide(wide.c_str())).GetFinalPath(path)) return {};
    return {FromWide(path), IsRemoteDrive(Wide(wide.c_str())) || IsRemoteDrive(path)};
}

NativeModule LoadModule(const std::string& path) {
    const std::u16string wide = FromUtf8(path);
    if (wide.empty()) return nullptr;
    const QuietThread quiet;
    return reinterpret_cast<NativeModule>(LoadLibraryExW(
        Wide(wide.c_str()), nullptr, LOAD_LIBRARY_SEARCH_DLL_LOAD_DIR | LOAD_LIBRARY_SEARCH_SYSTEM32));
}

EntryPoint FindEntry(NativeModule module, const char* name) noexcept {
    return reinterpret_cast<EntryPoint>(GetProcAddress(reinterpret_cast<HMODULE>(module), name));
}

} // namespace brixen::pvn
