// The way back of a worker: its reports and, as their answer, whether it is to go on.
#pragma once

#include "frame/pavane_context.h"
#include "workflow/context/progress.h"

#include <cstdint>

namespace brixen::pvn::pvn_workflow {

// Used on the worker's thread.
class WorkerNotifier {
public:
    WorkerNotifier(WorkerRun ofRun, WorkerCallback function) : callback(function), run(ofRun) {}

    // Reports a percent below 100; a higher one counts as 99, because the engine itself reports the end.
    // Returns whether the worker is to go on. After false it ends soon, with a status other than 0. What the
    // worker of an earlier run reports is dropped, and the answer is false.
    bool Report(std::uint16_t percent) const noexcept;

private:
    WorkerCallback callback;
    WorkerRun run;
};

} // namespace brixen::pvn::pvn_workflow
