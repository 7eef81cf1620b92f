// Behind the exported calls: the frame's operations and what they share.
#pragma once

#include "frame/exports/launchers.h"
#include "frame/status.h"

#include <atomic>
#include <cstdint>

namespace brixen::pvn {

// What a run of a workflow means for calls that come in meanwhile.
enum class RunState {
    kIdle,
    kRunning,
    kRunningThenTerminate, // Pavane_Terminate came during the run
};

struct ExportsState {
    const WorkflowCatalogue* catalogue = &kWorkflowCatalogue;
    std::atomic<RunState> run = RunState::kIdle;
};

ExportsState& GetExportsState() noexcept;
// Takes the frame back to what it is when the library is loaded: no context, no log, the words zero. For
// tests.
void ResetExports();

// The operations behind the exports; pavane.h tells what each does. What they return stands in gLastError
// afterward; Terminate leaves it alone.
Status Initialize(std::int32_t hostApp, std::uint32_t hostOptions);
Status PreloadWorkflow(std::uint16_t workflow);
Status RunWorkflow(std::uint16_t workflow, void* parentWindow);
void Terminate();

} // namespace brixen::pvn
