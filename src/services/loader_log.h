// The service loader's own channel. Its messages do not go to the library's log file: they go to the debugger
// until the logging service is up, and to that service from then on.
#pragma once

#include "frame/log.h"

#include <cstdarg>

namespace brixen::pvn {

// What a level of this channel is used for.
inline constexpr int kLoaderLevelFailure = 1;  // the base service library cannot be had
inline constexpr int kLoaderLevelUnusable = 2; // a library or a symbol was found but could not be used
inline constexpr int kLoaderLevelMissing = 3;  // a library could not be found
inline constexpr int kLoaderLevelPath = 4;     // a folder is searched from now on
inline constexpr int kLoaderLevelProgress = 5;

// The logging service's entry. The arguments' formats stand in a text of their own, such as "%s %s".
using LogvEntry = void (*)(void* session, const char* component, int level, const char* argumentFormats,
                           const char* format, std::va_list arguments);

struct LoaderLogChannel {
    // Set once the base service library is up.
    bool useLoggingService = false;
    // Finds the service's entry "C_SVHLogv"; it may answer null.
    LogvEntry (*findLogv)() = nullptr;
};

// Writes one message, printf-style, with no line end of its own. Without the logging service a message of
// level 1 to 3 goes to the debugger as component, ": ", text and CR LF, its text cut at 4093 bytes; other
// levels are dropped. A message that cannot reach the service is told to the debugger. Never fails.
void LoaderLog(const LoaderLogChannel& channel, int level, const char* argumentFormats, const char* format,
               ...) PVN_PRINTF_LIKE(4, 5);

// The settings of the logging service, which are its own: this library neither reads nor applies them.
inline constexpr char kLogLevelSetting[] = "SVHLogLevel";
inline constexpr const char* kLogLevels[] = {"off", "critical", "error", "warning", "informational", "debug"};
inline constexpr char kDefaultLogLevel[] = "informational";
inline constexpr char kLogFormatSetting[] = "SVHLogFormat";
inline constexpr const char* kLogFormats[] = {"obscured", "clear"};
inline constexpr char kDefaultLogFormat[] = "clear";

} // namespace brixen::pvn
