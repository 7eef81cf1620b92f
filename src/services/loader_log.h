// The channel of the service loader. Its messages do not go to the log file: they go to the debugger until
// the logging service is up, and to that service from then on.
#pragma once

#include "compiler.h"

#include <cstdarg>

namespace brixen::pvn {

// The levels of this channel.
inline constexpr int kLoaderLevelFailure = 1;  // the base service library cannot be loaded
inline constexpr int kLoaderLevelUnusable = 2; // a library or a symbol was found but could not be used
inline constexpr int kLoaderLevelMissing = 3;  // a library could not be found
inline constexpr int kLoaderLevelPath = 4;     // a folder is searched from now on
inline constexpr int kLoaderLevelProgress = 5;

// The entry of the logging service. `argumentFormats` lists the formats of the arguments, such as "%s %s".
using LogvEntry = void (*)(void* session, const char* component, int level, const char* argumentFormats,
                           const char* format, std::va_list arguments);

struct LoaderLogChannel {
    // True after the base service library has been loaded.
    bool useLoggingService = false;
    // Finds the entry "C_SVHLogv" of the service; may return null.
    LogvEntry (*findLogv)() = nullptr;
};

// Writes one message, printf-style, without a line end of its own. With the logging service every level goes
// there; a message that cannot reach it becomes a line to the debugger that says so. Without the service, a
// message of level 1 to 3 goes to the debugger as component, ": ", text and CR LF, the text cut at 4093
// bytes; other levels are dropped. Never fails. Any thread.
void LoaderLog(const LoaderLogChannel& channel, int level, const char* argumentFormats, const char* format,
               ...) PVN_PRINTF_LIKE(4, 5);

// The settings of the logging service. This library neither reads nor applies them.
inline constexpr char kLogLevelSetting[] = "SVHLogLevel";
inline constexpr const char* kLogLevels[] = {"off", "critical", "error", "warning", "informational", "debug"};
inline constexpr char kDefaultLogLevel[] = "informational";
inline constexpr char kLogFormatSetting[] = "SVHLogFormat";
inline constexpr const char* kLogFormats[] = {"obscured", "clear"};
inline constexpr char kDefaultLogFormat[] = "clear";

} // namespace brixen::pvn
