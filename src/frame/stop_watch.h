// The stop watch of the log's timing lines. It counts milliseconds of the system's 32-bit tick count, which
// wraps after 49 days; every difference taken here survives the wrap.
#pragma once

#include "frame/log.h"

#include <cstdint>

namespace brixen::pvn {

// Starts the clock anew.
void ResetStopWatch() noexcept;

// Returns the seconds since the last reset; before any reset, the seconds since the system started.
[[nodiscard]] float StopWatchSeconds() noexcept;

// Resets, and writes "PVN: _time_: reset stop watch (clock: 0.0 sec, func: ..., line: ...)".
void LogStopWatchReset(const LogSource& source) noexcept;

// Writes "PVN: _time_: <label> (clock: 1.234 sec)" with the time since the last reset.
void LogClock(const char* label) noexcept;

// The label of the user's first key or mouse press in the dialog of a workflow.
inline constexpr char kFirstUserEventLabel[] = "dialog receive first user event";

// Times a long operation from construction to destruction, and then writes "PVN: _time_: (func: ...,
// duration: 1.234 sec)". Writes nothing for less than a millisecond of ticks. Borrows the name.
class DurationLine {
public:
    explicit DurationLine(const char* functionName) noexcept;
    ~DurationLine();
    DurationLine(const DurationLine&) = delete;
    DurationLine& operator=(const DurationLine&) = delete;

private:
    const char* function;
    std::uint32_t start;
};

} // namespace brixen::pvn
