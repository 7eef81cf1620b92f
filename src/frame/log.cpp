#include "frame/log.h"

#include "frame/brief_lock.h"
#include "frame/frame_state.h"
#include "frame/platform/frame_platform.h"

#include <array>
#include <cstdarg>
#include <ctime>
#include <string_view>
#include <utility>

namespace brixen::pvn {
namespace {

constexpr std::u16string_view kLogFileName = u"pvn.log";
// The folder must leave room for the name of the file and its terminator.
constexpr std::size_t kFolderLimit = kPathLimit + 1 - (kLogFileName.size() + 1);
constexpr std::int64_t kLargeLog = 256001; // bytes

using LogPath = std::array<char16_t, kPathLimit>;

LogPath MakeLogPath() noexcept {
    LogPath path{};
    std::size_t length = GetTemporaryFolder(path);
    if (length >= kFolderLimit) length = 0; // the file is then in the current directory
    path[length + kLogFileName.copy(path.data() + length, kLogFileName.size())] = u'\0';
    return path;
}

void ReplaceStream(std::FILE* stream) noexcept {
    FrameState& frame = GetFrameState();
    const BriefLock lock(frame.isLogBusy);
    std::FILE* const unused = lock.IsHeld() ? std::exchange(frame.gLogStream, stream) : stream;
    if (unused) std::fclose(unused);
}

void WritePrefixTo(std::FILE* stream) noexcept {
    const std::tm now = LocalTime(std::time(nullptr));
    char text[100] = {};
    std::strftime(text, sizeof text, "%Y-%m-%d %H:%M:%S", &now);
    std::fprintf(stream, "%s [%d] ", text, static_cast<int>(CurrentProcessNumber()));
}

} // namespace

void OpenLog(bool trimIfLarge) noexcept {
    const LogPath path = MakeLogPath();
    const bool empty = trimIfLarge && SizeOfFile(path.data()) >= kLargeLog;
    ReplaceStream(OpenSharedFile(path.data(), !empty));
}

std::u16string LogFilePath() { return MakeLogPath().data(); }

void CloseLog() noexcept { ReplaceStream(nullptr); }

void WriteLogPrefix() noexcept {
    FrameState& frame = GetFrameState();
    const BriefLock lock(frame.isLogBusy);
    if (lock.IsHeld() && frame.gLogStream) WritePrefixTo(frame.gLogStream);
}

void PvnLog(const char* format, ...) noexcept {
    FrameState& frame = GetFrameState();
    const BriefLock lock(frame.isLogBusy);
    if (!lock.IsHeld() || !frame.gLogStream) return;
    WritePrefixTo(frame.gLogStream);
    std::va_list arguments;
    va_start(arguments, format);
    std::vfprintf(frame.gLogStream, format, arguments);
    va_end(arguments);
    std::fflush(frame.gLogStream);
}

void LogRequirement(const LogSource& source) noexcept {
    PvnLog("%s: %s: (func: %s, line: %d)\n", kLogComponent, kLogRequirement, source.function, source.line);
}

void LogRequirement(const LogSource& source, Status value) noexcept {
    PvnLog("%s: %s: (func: %s, line: %d, value: %d)\n", kLogComponent, kLogRequirement, source.function,
           source.line, value);
}

} // namespace brixen::pvn
