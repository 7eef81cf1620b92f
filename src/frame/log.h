// The diagnostic log: the text file "pvn.log" in the user's temporary folder. No levels, no configuration.
//
// Every line is "YYYY-MM-DD hh:mm:ss [process id] PVN: key: ..." and is on disk when the writer returns.
// Nothing here fails to its caller: without an open file the writers do nothing, and a failed write is
// ignored. Any thread may write; opening and closing are the host's thread's alone, while no worker runs.
// There is no lock: lines of two threads may interleave between prefix and body.
#pragma once

#include "compiler.h"
#include "frame/status.h"

#include <atomic>
#include <cstdio>

namespace brixen::pvn {

// The open log file; null while there is none. Atomic, since an initialize from another thread during a run
// opens the file again.
extern std::atomic<std::FILE*> gLogStream;

// The component word and the keys that begin a body.
inline constexpr char kLogComponent[] = "PVN";
inline constexpr char kLogRequirement[] = "__req_";
inline constexpr char kLogInfo[] = "_info_";
inline constexpr char kLogTiming[] = "_time_";

// A function's fully qualified name and the number that its lines show. The numbers are part of the log's
// vocabulary, whatever becomes of the source.
struct LogPlace {
    const char* function;
    int line;
};

inline constexpr char kInitializeName[] = "brixen::pvn::Pavane_Initialize";
inline constexpr char kPreloadWorkflowName[] = "brixen::pvn::Pavane_PreloadWorkflow";
inline constexpr char kRunWorkflowName[] = "brixen::pvn::Pavane_RunWorkflow";
inline constexpr char kLaunchWorkflowName[] = "brixen::pvn::LaunchWorkflow";
inline constexpr char kRunPlatformThreadName[] = "brixen::pvn::Pavane_Pri_RunPlatformThread";

inline constexpr LogPlace kAlreadyInitialized{kInitializeName, 182};
inline constexpr LogPlace kRefusedHostApp{kInitializeName, 187};
inline constexpr LogPlace kNoMemoryForContext{kInitializeName, 191};
inline constexpr LogPlace kPreloadWithoutContext{kPreloadWorkflowName, 328};
inline constexpr LogPlace kRunWithoutContext{kRunWorkflowName, 392};
inline constexpr LogPlace kRunNotPrepared{kRunWorkflowName, 394};
inline constexpr LogPlace kLauncherStarts{kLaunchWorkflowName, 64};
inline constexpr LogPlace kThreadRefused{kRunPlatformThreadName, 1928};

// Opens the file to append; with trimIfLarge it is emptied first when it holds more than 256,000 bytes. A
// temporary folder of 253 or more UTF-16 units counts as none, and the file then lies in the current
// directory. An earlier stream stays open and is forgotten: meant, lines reach the file either way.
void OpenLog(bool trimIfLarge) noexcept;

// Closes and forgets the newest stream.
void CloseLog() noexcept;

// Writes prefix and body, and flushes. The body ends with its own "\n".
PVN_PRINTF_LIKE(1, 2) void PvnLog(const char* format, ...) noexcept;

// The prefix alone; neither body nor flush.
void WriteLogPrefix() noexcept;

// A failed requirement, logged where it is detected and before the status travels up.
void LogRequirement(const LogPlace& place) noexcept;
void LogRequirement(const LogPlace& place, Status value) noexcept;

} // namespace brixen::pvn
