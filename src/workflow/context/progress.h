// What the dialog's thread and a worker share: process-wide variables, each read and written whole, without a
// lock.
#pragma once

#include <atomic>

namespace brixen::pvn::pvn_workflow {

// The user wants the running operation stopped. Written by the dialog's thread only.
extern std::atomic<bool> gProgressCancel;

} // namespace brixen::pvn::pvn_workflow
