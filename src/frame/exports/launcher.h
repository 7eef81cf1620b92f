// The launcher: one for all workflows. It runs a prepared workflow in the workflow engine.
#pragma once

#include "frame/exports/launcher_table.h"
#include "frame/status.h"

#include <string>

namespace brixen::pvn {

// Fills a bag, runs the workflow in `language`, and frames the run in the log. Any exception becomes
// kStatusException; the log has its End line on that path too. Needs a context. `parentWindow` is put
// into the bag unchanged.
[[nodiscard]] Status LaunchWorkflow(const WorkflowRow& workflow, const std::string& language,
                                    void* parentWindow) noexcept;

} // namespace brixen::pvn
