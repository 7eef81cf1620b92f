// The diagnostic log: the text file "pvn.log" in the user's temporary folder. No levels, no configuration.
//
// Every line is "YYYY-MM-DD hh:mm:ss [process id] PVN: key: ..." and is on disk when the writer returns. The
// log never reports a failure: without an open file the writers do nothing, and a failed write is ignored.
// Every function may be called on any thread; a lock keeps lines whole and a stream open while it is used. If
// another thread keeps the lock for kLongestWaitForLock (frame/brief_lock.h), the call does nothing.
#pragma once

#include "compiler.h"
#include "frame/status.h"

#include <string>

namespace brixen::pvn {

// The component word and the keys that begin a body.
inline constexpr char kLogComponent[] = "PVN";
inline constexpr char kLogRequirement[] = "__req_";
inline constexpr char kLogInfo[] = "_info_";
inline constexpr char kLogTiming[] = "_time_";

// The function and the line that a log line names. The line numbers are part of the log's vocabulary and stay
// the same when the source changes.
struct LogSource {
    const char* function; // fully qualified
    int line;
};

inline constexpr char kInitializeName[] = "brixen::pvn::Pavane_Initialize";
inline constexpr char kPreloadWorkflowName[] = "brixen::pvn::Pavane_PreloadWorkflow";
inline constexpr char kRunWorkflowName[] = "brixen::pvn::Pavane_RunWorkflow";
inline constexpr char kLaunchWorkflowName[] = "brixen::pvn::LaunchWorkflow";
inline constexpr char kRunPlatformThreadName[] = "brixen::pvn::Pavane_Pri_RunPlatformThread";

inline constexpr LogSource kAlreadyInitialized{kInitializeName, 182};
inline constexpr LogSource kRefusedHostApp{kInitializeName, 187};
inline constexpr LogSource kNoMemoryForContext{kInitializeName, 191};
inline constexpr LogSource kPreloadWithoutContext{kPreloadWorkflowName, 328};
inline constexpr LogSource kRunWithoutContext{kRunWorkflowName, 392};
inline constexpr LogSource kRunNotPrepared{kRunWorkflowName, 394};
inline constexpr LogSource kLauncherStarts{kLaunchWorkflowName, 64};
inline constexpr LogSource kThreadRefused{kRunPlatformThreadName, 1928};

// Opens the file to append, and closes the stream that was open before. With trimIfLarge a file of more than
// 256,000 bytes is emptied first. A temporary folder of 253 or more UTF-16 units counts as none, and the file
// is then in the current directory.
void OpenLog(bool trimIfLarge) noexcept;

// Returns the path of the file, whether or not it is open. Throws std::bad_alloc.
[[nodiscard]] std::u16string LogFilePath();

// Closes the stream, if one is open.
void CloseLog() noexcept;

// Writes prefix and body, and flushes. The body ends with its own "\n".
PVN_PRINTF_LIKE(1, 2) void PvnLog(const char* format, ...) noexcept;

// Writes the prefix alone: no body, no flush.
void WriteLogPrefix() noexcept;

// Logs a failed requirement. Call it where the failure is detected, before the status travels up.
void LogRequirement(const LogSource& source) noexcept;
void LogRequirement(const LogSource& source, Status value) noexcept;

} // namespace brixen::pvn
