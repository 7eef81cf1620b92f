// What the dialog's thread shares with a worker: how far it is, how it ended, and whether it is to stop.
//
// Percent and status are two halves of one atomic word, so that no reader sees the end of a worker with an
// earlier status.
#pragma once

#include "frame/pavane_context.h"

#include <atomic>
#include <cstdint>

namespace brixen::pvn::pvn_workflow {

inline constexpr std::uint16_t kPercentFinished = 100;

// 0 until the end of the worker, kPercentFinished from then on until the dialog has taken the result. A
// worker may report percents between. Any thread.
[[nodiscard]] std::uint16_t gProgressPercent() noexcept;
// The status of the latest report; counts when the percent is kPercentFinished. Any thread.
[[nodiscard]] Status gProgressStatus() noexcept;
// Whether the user wants the running operation stopped; false at first. Written by the dialog's thread only.
extern std::atomic<bool> gProgressCancel;

// The WorkerCallback of the engine: stores both. Returns whether the worker is to go on. Any thread.
bool ProgressNotifier(std::uint16_t percent, Status status) noexcept;

// The start of one worker. The latest one alone may report.
using WorkerRun = std::uint32_t;

// Clears all three values and begins a run; what an earlier worker reports from now on is dropped. Call it on
// the dialog's thread, as the next two functions.
WorkerRun BeginWorkerRun() noexcept;
// The same without a new worker.
void EndWorkerRun() noexcept;
// Takes the end of the worker: the percent is 0 again, and the status stays.
void ClearProgressPercent() noexcept;

// Calls the notifier if the run is the latest one. Returns its answer, and false for an earlier run. Any
// thread.
bool NotifyOfRun(WorkerRun run, WorkerCallback notifier, std::uint16_t percent, Status status) noexcept;

} // namespace brixen::pvn::pvn_workflow
