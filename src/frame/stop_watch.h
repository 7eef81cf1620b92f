// The stop watch behind the log's timing lines, in milliseconds of the system's 32-bit tick count, which
// wraps after 49 days; every difference taken here survives the wrap.
#pragma once

#include "frame/log.h"

#include <cstdint>

namespace brixen::pvn {

// Tick count at the last reset; 0 until then, so that clocks before any reset show the time since system
// start.
extern std::uint32_t gStopWatchStart;

void ResetStopWatch() noexcept;
float StopWatchSeconds() noexcept;

// Resets, and writes "PVN: _time_: reset stop watch (clock: 0.0 sec, func: ..., line: ...)".
void LogStopWatchReset(const LogPlace& place) noexcept;

// Writes "PVN: _time_: <label> (clock: 1.234 sec)" with the time since the last reset.
void LogClock(const char* label) noexcept;

// The label at the user's first key or mouse press in a workflow's dialog.
inline constexpr char kFirstUserEventLabel[] = "dialog receive first user event";

// Times a long operation from construction to destruction, and then writes "PVN: _time_: (func: ...,
// duration: 1.234 sec)"; nothing when less than a millisecond of ticks went by.
class DurationLine {
public:
    explicit DurationLine(const char* function) noexcept;
    ~DurationLine();
    DurationLine(const DurationLine&) = delete;
    DurationLine& operator=(const DurationLine&) = delete;

private:
    const char* fFunction;
    std::uint32_t fStart;
};

} // namespace brixen::pvn
