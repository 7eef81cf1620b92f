#include "frame/stop_watch.h"

#include "frame/platform/frame_platform.h"

namespace brixen::pvn {

std::uint32_t gStopWatchStart = 0;

void ResetStopWatch() noexcept { gStopWatchStart = TickCount(); }

float StopWatchSeconds() noexcept { return static_cast<float>(TickCount() - gStopWatchStart) / 1000; }

void LogStopWatchReset(const LogPlace& place) noexcept {
    ResetStopWatch();
    PvnLog("%s: %s: reset stop watch (clock: 0.0 sec, func: %s, line: %d)\n", kLogComponent, kLogTiming,
           place.function, place.line);
}

void LogClock(const char* label) noexcept {
    PvnLog("%s: %s: %s (clock: %.3f sec)\n", kLogComponent, kLogTiming, label,
           static_cast<double>(StopWatchSeconds()));
}

DurationLine::DurationLine(const char* function) noexcept : fFunction(function), fStart(TickCount()) {}

DurationLine::~DurationLine() {
    const double seconds = static_cast<double>(TickCount() - fStart) / 1000;
    if (seconds >= 0.001)
        PvnLog("%s: %s: (func: %s, duration: %.3f sec)\n", kLogComponent, kLogTiming, fFunction, seconds);
}

} // namespace brixen::pvn
