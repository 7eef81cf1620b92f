// The process-wide state of the frame: one record, one accessor, one reset for tests.
#pragma once

#include "frame/status.h"

#include <atomic>
#include <cstdint>
#include <cstdio>

namespace brixen::pvn {

struct PavaneContext;
struct LauncherTable;

// Whether a workflow runs, and what happens at its end.
enum class RunState {
    kIdle,
    kRunning,
    kRunningThenTerminate, // Pavane_Terminate was called during the run
};

// The fields belong to the host's thread unless a comment says otherwise. The g in a name is the system's
// own.
struct FrameState {
    // The open log file, owned; null while it is closed. The flag is set while a line is written and while
    // the stream changes, so any thread may log. A mutex would need a destructor with some compilers.
    std::FILE* gLogStream = nullptr;
    std::atomic_flag isLogBusy;

    // Tick count at the last reset of the stop watch; 0 until then.
    std::uint32_t gStopWatchStart = 0;

    // Null: the library is not initialized. Owned. A plain pointer, because a destructor would run while the
    // library is being unloaded.
    PavaneContext* gPavaneContext = nullptr;

    // The status of the latest frame operation. Outlives the context. Any thread may read it, and a call that
    // is refused during a run writes it from any thread.
    std::atomic<Status> gLastError = kStatusSuccess;

    // The workflow whose resources are already prepared; 0 for none. Outlives the context.
    std::uint16_t gPreloadedWorkflow = 0;

    // Any thread may ask for it.
    std::atomic<RunState> runState = RunState::kIdle;

    // Set after a new worker has read its slot: the slot may be overwritten, or freed with its context, from
    // then on.
    std::atomic<bool> isSlotTaken = false;

    // The workflows in place of the library's own; null in the product. Borrowed.
    const LauncherTable* testLaunchers = nullptr;
};

FrameState& GetFrameState() noexcept;

// For tests: frees the context, closes the log, and returns every field to its value at load.
void ResetFrameState() noexcept;

// Sets workflowPhase of the context; does nothing without a context.
void SetWorkflowPhase(std::uint32_t phase) noexcept;

// Makes `status` the latest one and returns it. Any thread.
Status StoreLastError(Status status) noexcept;

} // namespace brixen::pvn
