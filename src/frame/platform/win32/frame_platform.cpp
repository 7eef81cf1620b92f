#include "frame/platform/frame_platform.h"

#include "values/unicode/platform/win32/wide.h"

#include <windows.h>

#include <share.h>
#include <sys/stat.h>
#include <wchar.h>

namespace brixen::pvn {
namespace {

using lyr::gen::Wide;

HANDLE HandleOf(NativeThread thread) { return reinterpret_cast<HANDLE>(thread); }

} // namespace

std::size_t GetTemporaryFolder(std::span<char16_t, kPathLimit> folder) noexcept {
    return GetTempPathW(kPathLimit, Wide(folder.data()));
}

std::FILE* OpenSharedFile(const char16_t* path, bool append) noexcept {
    return _wfsopen(Wide(path), append ? L"a" : L"w", _SH_DENYNO);
}

std::int64_t SizeOfFile(const char16_t* path) noexcept {
    struct _stat64 facts = {};
    return _wstat64(Wide(path), &facts) == 0 ? facts.st_size : -1;
}

std::uint32_t TickCount() noexcept { return GetTickCount(); }

std::uint32_t CurrentProcessNumber() noexcept { return GetCurrentProcessId(); }

std::tm LocalTime(std::time_t time) noexcept {
    std::tm parts = {};
    if (localtime_s(&parts, &time) != 0) return {};
    return parts;
}

void PinLibrary() noexcept {
    HMODULE module = nullptr;
    const auto address = reinterpret_cast<const wchar_t*>(&PinLibrary);
    GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_PIN, address,
                       &module);
}

NativeThread StartThread(ThreadRoutine routine, void* argument) noexcept {
    return reinterpret_cast<NativeThread>(CreateThread(nullptr, 0, routine, argument, 0, nullptr));
}

void CloseThread(NativeThread thread) noexcept { CloseHandle(HandleOf(thread)); }

bool WaitForThread(NativeThread thread, std::uint32_t milliseconds, unsigned long* exitCode) noexcept {
    return WaitForSingleObject(HandleOf(thread), milliseconds) == WAIT_OBJECT_0 &&
           GetExitCodeThread(HandleOf(thread), exitCode);
}

void YieldThread() noexcept {
    if (!SwitchToThread()) Sleep(1);
}

LanguageIdentifier ThreadLanguage() noexcept { return GetThreadUILanguage(); }

void GetLocaleName(LanguageIdentifier language, std::span<char, kLocaleNameSize> name) noexcept {
    static_assert(kLocaleNameSize == LOCALE_NAME_MAX_LENGTH);
    wchar_t wide[kLocaleNameSize] = {};
    const int length =
        language ? LCIDToLocaleName(MAKELCID(language, SORT_DEFAULT), wide, kLocaleNameSize, 0) : 0;
    for (int i = 0; i < length; ++i) name[static_cast<std::size_t>(i)] = static_cast<char>(wide[i]);
    if (length == 0) name[0] = '\0';
}

} // namespace brixen::pvn
