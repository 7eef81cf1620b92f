#include "workflow/worker/worker_start.h"

#include "frame/platform/frame_platform.h"
#include "frame/worker_thread.h"
#include "net/platform/net_platform.h"
#include "net/transport/call_limit.h"

#include <atomic>
#include <new>
#include <utility>

namespace brixen::pvn::pvn_workflow {

namespace {

constexpr std::uint32_t kPauseBetweenSignals = 10; // milliseconds

// The workers that have started and not ended; more than one only while an earlier one is being refused.
constinit std::atomic<int> gWorkers = 0;

// The event is made and cleared before the first question, and is held until the work has ended: a cancel
// before the question is its answer, and a later one leaves a signal that ends the next wait.
Status Work(const WorkerTask& task, WorkerCallback callback) {
    const EventHandle cancel = MakeClearCancelEvent();
    const WorkerNotifier notifier(task.run, callback);
    return notifier.Report(0) ? task.entry(task.bag->values, notifier) : kStatusCallCanceled;
}

Status StatusOfWork(const WorkerTask& task, WorkerCallback callback) noexcept {
    try {
        return Work(task, callback);
    } catch (const std::bad_alloc&) {
        return kStatusNoMemory;
    } catch (...) {
        return kStatusException;
    }
}

Status RunToItsEnd(std::unique_ptr<WorkerTask> task, WorkerCallback callback) noexcept {
    const Status status = StatusOfWork(*task, callback);
    const WorkerRun run = task->run;
    task.reset(); // the bag is not touched after the report
    NotifyOfRun(run, callback, kPercentFinished, status);
    return status;
}

Status RunOnThread(void* task, WorkerCallback callback) {
    const Status status = RunToItsEnd(std::unique_ptr<WorkerTask>(static_cast<WorkerTask*>(task)), callback);
    --gWorkers;
    return status;
}

// Returns whether no earlier worker works any longer. A signal ends one wait, so each pause has its own.
bool EndEarlierWorker() noexcept {
    const EventHandle never(MakeEvent(nullptr));
    const std::uint32_t start = TickCount();
    while (IsWorkerRunning()) {
        if (TickCount() - start >= kLongestWaitForWorker) return false;
        CancelTransaction();
        if (!never || WaitForEither(never.get(), nullptr, kPauseBetweenSignals) == WaitResult::kFailed) {
            YieldThread();
        }
    }
    return true;
}

} // namespace

bool IsWorkerRunning() noexcept { return gWorkers != 0; }

void StartWorker(std::unique_ptr<WorkerTask> task, WorkerCallback notifier) noexcept {
    const WorkerRun run = task->run;
    Status status = kStatusNoThread;
    if (EndEarlierWorker()) {
        ++gWorkers;
        status = Pavane_Pri_RunPlatformThread(RunOnThread, task.get(), notifier);
        if (status == kStatusSuccess) {
            static_cast<void>(task.release()); // belongs to the thread now
            return;
        }
        --gWorkers;
    }
    NotifyOfRun(run, notifier, kPercentFinished, status);
}

void RunWorkerHere(std::unique_ptr<WorkerTask> task, WorkerCallback notifier) noexcept {
    RunToItsEnd(std::move(task), notifier);
}

} // namespace brixen::pvn::pvn_workflow
