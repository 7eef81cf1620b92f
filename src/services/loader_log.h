// The channel of the service loader. Its messages do not go to the log file: they go to the debugger until
// the logging service is up, and to that service from then on.
#pragma once

#include "compiler.h"

#include <atomic>
#include <cstdarg>
#include <cstdint>
#include <mutex>

namespace brixen::pvn {

// The levels of this channel.
inline constexpr int kLoaderLevelFailure = 1;  // the base service library cannot be loaded
inline constexpr int kLoaderLevelUnusable = 2; // a library or a symbol was found but could not be used
inline constexpr int kLoaderLevelMissing = 3;  // a library could not be found
inline constexpr int kLoaderLevelPath = 4;     // a folder is searched from now on
inline constexpr int kLoaderLevelProgress = 5;

// Writes a line of the logging service. `argumentFormats` lists the formats of the arguments, such as
// "%s %s".
using LogvFunction = void (*)(void* session, const char* component, int level, const char* argumentFormats,
                              const char* format, std::va_list arguments);

// A message on its way to the service.
struct MessageUnderWay {
    std::uint32_t thread;
    MessageUnderWay* next;
};

struct LoaderLogChannel {
    // Without `logvOfService` no message reaches a service.
    explicit LoaderLogChannel(LogvFunction logvOfService = nullptr) noexcept : logv(logvOfService) {}

    const LogvFunction logv;
    // True: messages go to `logv`.
    std::atomic<bool> useLoggingService = false;

    std::mutex messagesLock;             // guards `messages`
    MessageUnderWay* messages = nullptr; // one a thread
};

// Writes one message, printf-style, without a line end of its own. Never fails. Any thread.
//
// With the logging service every level goes there. Without it, a message of level 1 to 3 goes to the debugger
// as component, ": ", text and CR LF, the text cut at 4093 bytes; other levels are dropped. The same is true
// of a message that is made while the thread has another one on its way to the service: it
// could not arrive either.
void LoaderLog(LoaderLogChannel& channel, int level, const char* argumentFormats, const char* format,
               ...) noexcept PVN_PRINTF_LIKE(4, 5);

// Shows the debugger the line COMPONENT: TEXT, ended by CR LF.
void ShowToDebugger(const char* component, const char* text) noexcept;

// The settings of the logging service. This library neither reads nor applies them.
inline constexpr char kLogLevelSetting[] = "SVHLogLevel";
inline constexpr const char* kLogLevels[] = {"off", "critical", "error", "warning", "informational", "debug"};
inline constexpr char kDefaultLogLevel[] = "informational";
inline constexpr char kLogFormatSetting[] = "SVHLogFormat";
inline constexpr const char* kLogFormats[] = {"obscured", "clear"};
inline constexpr char kDefaultLogFormat[] = "clear";

} // namespace brixen::pvn
