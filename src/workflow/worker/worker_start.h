// Starts workers, and ends those of earlier runs.
#pragma once

#include "workflow/context/progress.h"
#include "workflow/context/worker_bag.h"
#include "workflow/worker/operation.h"

#include <cstdint>
#include <memory>

namespace brixen::pvn::pvn_workflow {

// What a worker gets.
struct WorkerTask {
    WorkerEntryOfBag entry;
    std::shared_ptr<WorkerBag> bag;
    WorkerRun run;
};

// How long a start waits for an earlier worker, in milliseconds.
inline constexpr std::uint32_t kLongestWaitForWorker = 2000;

// Starts a worker, after the end of an earlier one: that is told to stop and waited for. If none can be
// started, the end is reported at once, with the status of the refusal; kStatusNoThread, logged, also if the
// earlier one still works.
void StartWorker(WorkerTask task, WorkerCallback notifier) noexcept;

// Does the same work on this thread, the dialog's, to its end.
void RunWorkerHere(WorkerTask task, WorkerCallback notifier) noexcept;

// For a run that was left without destructors: its worker is told to stop, and its reports are dropped. What
// the run has left is lost and is not wiped: a password stays in its bags and in its field.
void AbandonWorker() noexcept;

// Whether a worker works, of this run or of an earlier one. It does so no longer when it reports its end.
[[nodiscard]] bool IsWorkerRunning() noexcept;

} // namespace brixen::pvn::pvn_workflow
