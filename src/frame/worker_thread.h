// The worker thread: the library has at most one handle of one at a time.
#pragma once

#include "frame/pavane_context.h"

namespace brixen::pvn {

// Starts entry(arg, callback) on a new thread. The slot of the context has room for one: the handle of an
// earlier thread is closed, and that thread runs on by itself. An exception out of `entry` becomes the exit
// code kStatusException. Returns kStatusNullArgument for a null entry, kStatusNotInitialized without a
// context, and kStatusNoThread (logged, with the slot filled) when the system refuses the thread. Call it on
// the host's thread.
[[nodiscard]] Status Pavane_Pri_RunPlatformThread(WorkerEntry entry, void* arg,
                                                  WorkerCallback callback) noexcept;

} // namespace brixen::pvn
