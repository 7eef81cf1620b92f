#include "frame/stop_watch.h"

#include "frame/frame_state.h"
#include "frame/platform/frame_platform.h"

namespace brixen::pvn {

void ResetStopWatch() noexcept { GetFrameState().gStopWatchStart = TickCount(); }

float StopWatchSeconds() noexcept {
    return static_cast<float>(TickCount() - GetFrameState().gStopWatchStart) / 1000;
}

void LogStopWatchReset(const LogSource& source) noexcept {
    ResetStopWatch();
    PvnLog("%s: %s: reset stop watch (clock: 0.0 sec, func: %s, line: %d)\n", kLogComponent, kLogTiming,
           source.function, source.line);
}

void LogClock(const char* label) noexcept {
    PvnLog("%s: %s: %s (clock: %.3f sec)\n", kLogComponent, kLogTiming, label,
           static_cast<double>(StopWatchSeconds()));
}

DurationLine::DurationLine(const char* functionName) noexcept : function(functionName), start(TickCount()) {}

DurationLine::~DurationLine() {
    const double seconds = static_cast<double>(TickCount() - start) / 1000;
    if (seconds >= 0.001)
        PvnLog("%s: %s: (func: %s, duration: %.3f sec)\n", kLogComponent, kLogTiming, function, seconds);
}

} // namespace brixen::pvn
