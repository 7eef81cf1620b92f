// Starts workers, and ends those of earlier runs.
#pragma once

#include "workflow/context/progress.h"
#include "workflow/context/worker_bag.h"
#include "workflow/worker/operation.h"

#include <cstdint>
#include <memory>

namespace brixen::pvn::pvn_workflow {

// What a worker gets, owned by its thread.
struct WorkerTask {
    WorkerEntryOfBag entry;
    std::shared_ptr<WorkerBag> bag;
    WorkerRun run;
};

// Starts a worker. If none can be started, the end is reported at once, with the status of the refusal. Ends
// an earlier worker first; if that still works after kLongestWaitForWorker, the start counts as refused.
inline constexpr std::uint32_t kLongestWaitForWorker = 2000; // milliseconds
void StartWorker(std::unique_ptr<WorkerTask> task, WorkerCallback notifier) noexcept;

// Does the same on this thread, to its end.
void RunWorkerHere(std::unique_ptr<WorkerTask> task, WorkerCallback notifier) noexcept;

// Whether a worker works, of this run or of an earlier one.
[[nodiscard]] bool IsWorkerRunning() noexcept;

} // namespace brixen::pvn::pvn_workflow
