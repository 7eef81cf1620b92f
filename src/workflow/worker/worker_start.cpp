#include "workflow/worker/worker_start.h"

#include "frame/log.h"
#include "frame/platform/frame_platform.h"
#include "frame/worker_thread.h"
#include "net/platform/net_platform.h"
#include "net/transport/call_limit.h"

#include <atomic>
#include <new>
#include <utility>

namespace brixen::pvn::pvn_workflow {

namespace {

// In milliseconds. A signal can end a call of another process, so there are few of them.
constexpr std::uint32_t kPauseBetweenLooks = 10, kPauseBetweenSignals = 250;

constinit std::atomic<int> gWorkers = 0; // that work; never more than one
constinit bool gWorksHere = false;       // the dialog's own thread works

// A worker that works, owned by its thread.
struct Worker {
    explicit Worker(WorkerTask its) noexcept : task(std::move(its)) { ++gWorkers; }
    ~Worker() {
        task.bag.reset();
        --gWorkers;
    }
    Worker(const Worker&) = delete;
    Worker& operator=(const Worker&) = delete;

    WorkerTask task;
};

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

// The bag is not touched after the report.
Status RunToItsEnd(std::unique_ptr<Worker> worker, WorkerCallback callback) noexcept {
    const Status status = StatusOfWork(worker->task, callback);
    const WorkerRun run = worker->task.run;
    worker.reset();
    NotifyOfRun(run, callback, kPercentFinished, status);
    return status;
}

Status RunOnThread(void* worker, WorkerCallback callback) {
    return RunToItsEnd(std::unique_ptr<Worker>(static_cast<Worker*>(worker)), callback);
}

// Returns whether no earlier worker works any longer. A signal ends one wait, so there is more than one.
bool EndEarlierWorker() noexcept {
    if (!IsWorkerRunning()) return true;
    const EventHandle never(MakeEvent(nullptr));
    const std::uint32_t start = TickCount();
    for (std::uint32_t nextSignal = 0; IsWorkerRunning();) {
        const std::uint32_t passed = TickCount() - start;
        if (passed >= kLongestWaitForWorker) {
            LogRequirement(kThreadRefused);
            return false;
        }
        if (passed >= nextSignal) {
            CancelTransaction();
            nextSignal = passed + kPauseBetweenSignals;
        }
        if (!never || WaitForEither(never.get(), nullptr, kPauseBetweenLooks) == WaitResult::kFailed) {
            YieldThread();
        }
    }
    return true;
}

Status Start(WorkerTask task, WorkerCallback notifier) noexcept {
    if (!EndEarlierWorker()) return kStatusNoThread;
    std::unique_ptr<Worker> worker(new (std::nothrow) Worker(std::move(task)));
    if (!worker) return kStatusNoMemory;
    const Status status = Pavane_Pri_RunPlatformThread(RunOnThread, worker.get(), notifier);
    if (status == kStatusSuccess) static_cast<void>(worker.release()); // belongs to the thread now
    return status;
}

} // namespace

bool IsWorkerRunning() noexcept { return gWorkers != 0; }

void AbandonWorker() noexcept {
    EndWorkerRun();
    if (std::exchange(gWorksHere, false)) --gWorkers; // it was left, too
    if (IsWorkerRunning()) CancelTransaction();
}

void StartWorker(WorkerTask task, WorkerCallback notifier) noexcept {
    const WorkerRun run = task.run;
    const Status status = Start(std::move(task), notifier);
    if (status != kStatusSuccess) NotifyOfRun(run, notifier, kPercentFinished, status);
}

void RunWorkerHere(WorkerTask task, WorkerCallback notifier) noexcept {
    const WorkerRun run = task.run;
    if (!EndEarlierWorker()) {
        NotifyOfRun(run, notifier, kPercentFinished, kStatusNoThread);
        return;
    }
    std::unique_ptr<Worker> worker(new (std::nothrow) Worker(std::move(task)));
    if (!worker) {
        NotifyOfRun(run, notifier, kPercentFinished, kStatusNoMemory);
        return;
    }
    gWorksHere = true;
    RunToItsEnd(std::move(worker), notifier);
    gWorksHere = false;
}

} // namespace brixen::pvn::pvn_workflow
