#include "values/platform/values_platform.h"

#include "values/platform/read_file.h"
#include "values/unicode/platform/win32/wide.h"

#include <windows.h>

#include <io.h>
#include <share.h>

#include <climits>
#include <cstdint>
#include <cstdlib>

namespace brixen::lyr::gen {
namespace {

bool IsUtf8(unsigned codePage) {
    return codePage == kCodePageUtf8 || (codePage == kCodePageProcess && GetACP() == kCodePageUtf8);
}

CodePageResult LastFailure() {
    const bool tooSmall = GetLastError() == ERROR_INSUFFICIENT_BUFFER;
    return {tooSmall ? CodePageStatus::kOutputTooSmall : CodePageStatus::kFailed, 0};
}

// For the system a capacity of 0 asks for the count. A capacity beyond an int is more than enough.
bool IsTooSmall(const void* output, std::size_t capacity) { return output != nullptr && capacity == 0; }
int Clamp(const void* output, std::size_t capacity) {
    return output == nullptr ? 0 : capacity > INT_MAX ? INT_MAX : static_cast<int>(capacity);
}

} // namespace

CodePageResult CodePageToWide(unsigned codePage, std::string_view bytes, char16_t* output,
                              std::size_t capacity) {
    if (bytes.empty()) return {CodePageStatus::kDone, 0};
    if (bytes.size() > INT_MAX) return {CodePageStatus::kFailed, 0};
    if (IsTooSmall(output, capacity)) return {CodePageStatus::kOutputTooSmall, 0};
    const int written =
        MultiByteToWideChar(codePage, MB_ERR_INVALID_CHARS, bytes.data(), static_cast<int>(bytes.size()),
                            Wide(output), Clamp(output, capacity));
    if (written <= 0) return LastFailure();
    return {CodePageStatus::kDone, static_cast<std::size_t>(written)};
}

CodePageResult WideToCodePage(unsigned codePage, std::u16string_view wide, char* output,
                              std::size_t capacity) {
    if (wide.empty()) return {CodePageStatus::kDone, 0};
    if (wide.size() > INT_MAX) return {CodePageStatus::kFailed, 0};
    if (IsTooSmall(output, capacity)) return {CodePageStatus::kOutputTooSmall, 0};
    // A question mark is better than a character that only resembles the right one.
    const DWORD flags = IsUtf8(codePage) ? 0 : WC_NO_BEST_FIT_CHARS;
    const int written = WideCharToMultiByte(codePage, flags, Wide(wide.data()), static_cast<int>(wide.size()),
                                            output, Clamp(output, capacity), nullptr, nullptr);
    if (written <= 0) return LastFailure();
    return {CodePageStatus::kDone, static_cast<std::size_t>(written)};
}

std::size_t NarrowSize(const char16_t* wide) { return std::wcstombs(nullptr, Wide(wide), 0); }

std::size_t WideToNarrow(char* output, const char16_t* wide, std::size_t size) {
    return std::wcstombs(output, Wide(wide), size);
}

std::size_t WideSize(const char* narrow) { return std::mbstowcs(nullptr, narrow, 0); }

std::size_t NarrowToWide(char16_t* output, const char* narrow, std::size_t size) {
    return std::mbstowcs(Wide(output), narrow, size);
}

namespace {

// Reading from a device may never return, and some devices are found in every folder.
bool IsOnDisk(std::FILE* file) {
    return GetFileType(reinterpret_cast<HANDLE>(_get_osfhandle(_fileno(file)))) == FILE_TYPE_DISK;
}

} // namespace

bool FileExists(const std::u16string& path) {
    const DWORD attributes = GetFileAttributesW(Wide(path.c_str()));
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
}

std::optional<std::string> ReadWholeFile(const std::u16string& path) {
    return ReadToEnd(FileHandle(_wfopen(Wide(path.c_str()), L"rb")));
}

std::optional<std::string> ReadWholeFile(const std::u16string& path, std::string& error) {
    return ReadToEnd(FileHandle(_wfopen(Wide(path.c_str()), L"rb")), error);
}

std::optional<std::string> ReadEndOfFile(const std::u16string& path, std::size_t most) {
    const FileHandle file(_wfopen(Wide(path.c_str()), L"rb"));
    // A shorter file refuses, and is read from its beginning.
    if (file && _fseeki64(file.get(), -static_cast<std::int64_t>(most), SEEK_END) != 0) {
        std::rewind(file.get());
    }
    return ReadAtMost(file, most);
}

bool WriteWholeFile(const std::u16string& path, std::string_view bytes, std::string& error) {
    return WriteToEnd(FileHandle(_wfopen(Wide(path.c_str()), L"wb")), bytes, error);
}

std::optional<std::string> ReadWholeFileAlone(const std::u16string& path) {
    const FileHandle file(_wfsopen(Wide(path.c_str()), L"rb", _SH_DENYRW));
    if (!file || !IsOnDisk(file.get())) return std::nullopt;
    return ReadToEnd(file);
}

} // namespace brixen::lyr::gen
