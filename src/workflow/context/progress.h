// The process-wide variables that the dialog's thread shares with a worker. Each is read and written whole,
// without a lock. They are in this room because the context sets them; the worker's actions are above it.
#pragma once

#include <atomic>

namespace brixen::pvn::pvn_workflow {

// Whether the user wants the running operation stopped; false at first. Written by the dialog's thread only.
extern std::atomic<bool> gProgressCancel;

} // namespace brixen::pvn::pvn_workflow
