#include "workflow/context/progress.h"

#include "frame/platform/frame_platform.h"

namespace brixen::pvn::pvn_workflow {

constinit std::atomic<bool> gProgressCancel = false;

namespace {

constexpr int kStatusBits = 16;
constexpr std::uint32_t kStatusMask = 0xFFFF;

constinit std::atomic<std::uint32_t> gProgress = 0; // the percent in the high half, the status in the low one

// The number of the latest run. It changes only while no report of a worker is being made.
struct LatestRun {
    WorkerRun number = 0;
    std::atomic_flag isTaken;
};
constinit LatestRun gLatestRun;

class RunLock {
public:
    RunLock() noexcept {
        while (gLatestRun.isTaken.test_and_set()) YieldThread();
    }
    ~RunLock() { gLatestRun.isTaken.clear(); }
    RunLock(const RunLock&) = delete;
    RunLock& operator=(const RunLock&) = delete;
};

} // namespace

std::uint16_t gProgressPercent() noexcept { return static_cast<std::uint16_t>(gProgress >> kStatusBits); }

Status gProgressStatus() noexcept { return static_cast<Status>(gProgress & kStatusMask); }

bool ProgressNotifier(std::uint16_t percent, Status status) noexcept {
    gProgress = static_cast<std::uint32_t>(percent) << kStatusBits | status;
    return !gProgressCancel;
}

WorkerRun BeginWorkerRun() noexcept {
    const RunLock lock;
    gProgress = 0;
    gProgressCancel = false;
    return ++gLatestRun.number;
}

void EndWorkerRun() noexcept { BeginWorkerRun(); }

void ClearProgressPercent() noexcept { gProgress &= kStatusMask; }

bool NotifyOfRun(WorkerRun run, WorkerCallback notifier, std::uint16_t percent, Status status) noexcept {
    const RunLock lock;
    return run == gLatestRun.number && notifier(percent, status);
}

} // namespace brixen::pvn::pvn_workflow
