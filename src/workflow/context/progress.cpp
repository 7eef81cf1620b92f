#include "workflow/context/progress.h"

#include "frame/brief_lock.h"

namespace brixen::pvn::pvn_workflow {

constinit std::atomic<bool> gProgressCancel = false;

namespace {

constexpr int kStatusBits = 16;
constexpr std::uint32_t kStatusMask = 0xFFFF;

constinit std::atomic<std::uint32_t> gProgress = 0; // the percent in the high half, the status in the low one

// The number of the latest run. It changes only while no report of a worker is being made; a thread that does
// not get the lock goes on, because the other one has ended inside.
struct LatestRun {
    std::atomic<WorkerRun> number = 0;
    std::atomic_flag isTaken;
};
constinit LatestRun gLatestRun;

} // namespace

std::uint16_t gProgressPercent() noexcept { return static_cast<std::uint16_t>(gProgress >> kStatusBits); }

Status gProgressStatus() noexcept { return static_cast<Status>(gProgress & kStatusMask); }

bool ProgressNotifier(std::uint16_t percent, Status status) noexcept {
    gProgress = static_cast<std::uint32_t>(percent) << kStatusBits | status;
    return !gProgressCancel;
}

WorkerRun BeginWorkerRun() noexcept {
    const BriefLock lock(gLatestRun.isTaken);
    gProgress = 0;
    gProgressCancel = false;
    return ++gLatestRun.number;
}

void EndWorkerRun() noexcept { BeginWorkerRun(); }

void ClearProgressPercent() noexcept { gProgress &= kStatusMask; }

bool NotifyOfRun(WorkerRun run, WorkerCallback notifier, std::uint16_t percent, Status status) noexcept {
    const BriefLock lock(gLatestRun.isTaken);
    return run == gLatestRun.number && notifier(percent, status);
}

} // namespace brixen::pvn::pvn_workflow
