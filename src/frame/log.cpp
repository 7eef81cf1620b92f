#include "frame/log.h"

#include "frame/platform/frame_platform.h"

#include <array>
#include <cstdarg>
#include <ctime>
#include <string_view>

namespace brixen::pvn {

std::atomic<std::FILE*> gLogStream = nullptr;

namespace {

constexpr std::u16string_view kLogFileName = u"pvn.log";
// The folder must leave room for the file's name and its terminator.
constexpr std::size_t kFolderLimit = kPathLimit + 1 - (kLogFileName.size() + 1);
constexpr std::int64_t kLargeLog = 256001; // bytes

using LogPath = std::array<char16_t, kPathLimit>;

LogPath MakeLogPath() noexcept {
    LogPath path{};
    std::size_t length = GetTemporaryFolder(path);
    if (length >= kFolderLimit) length = 0; // the file then lies in the current directory
    path[length + kLogFileName.copy(path.data() + length, kLogFileName.size())] = u'\0';
    return path;
}

} // namespace

void OpenLog(bool trimIfLarge) noexcept {
    const LogPath path = MakeLogPath();
    const bool empty = trimIfLarge && SizeOfFile(path.data()) >= kLargeLog;
    gLogStream = OpenSharedFile(path.data(), !empty);
}

void CloseLog() noexcept {
    if (std::FILE* stream = gLogStream.exchange(nullptr)) std::fclose(stream);
}

namespace {

void WritePrefixTo(std::FILE* stream) noexcept {
    const std::tm now = LocalTime(std::time(nullptr));
    char text[100] = {};
    std::strftime(text, sizeof text, "%Y-%m-%d %H:%M:%S", &now);
    std::fprintf(stream, "%s [%d] ", text, static_cast<int>(CurrentProcessNumber()));
}

} // namespace

void WriteLogPrefix() noexcept {
    if (std::FILE* stream = gLogStream) WritePrefixTo(stream);
}

void PvnLog(const char* format, ...) noexcept {
    std::FILE* const stream = gLogStream;
    if (!stream) return;
    WritePrefixTo(stream);
    std::va_list arguments;
    va_start(arguments, format);
    std::vfprintf(stream, format, arguments);
    va_end(arguments);
    std::fflush(stream);
}

void LogRequirement(const LogPlace& place) noexcept {
    PvnLog("%s: %s: (func: %s, line: %d)\n", kLogComponent, kLogRequirement, place.function, place.line);
}

void LogRequirement(const LogPlace& place, Status value) noexcept {
    PvnLog("%s: %s: (func: %s, line: %d, value: %d)\n", kLogComponent, kLogRequirement, place.function,
           place.line, value);
}

} // namespace brixen::pvn
