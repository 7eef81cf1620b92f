// The one worker thread that the library has at a time. Called on the host's thread.
#pragma once

#include "frame/pavane_context.h"

namespace brixen::pvn {

// Starts entry(arg, callback) on a thread of its own. The context's slot has room for one: the handle of an
// earlier thread is closed and the thread runs on by itself. An exception out of `entry` becomes the exit
// code kStatusException. Returns kStatusNullArgument for a null entry, kStatusNotInitialized without a
// context, kStatusNoThread (logged) when the system refuses the thread; the slot holds the three values then
// too.
Status Pavane_Pri_RunPlatformThread(WorkerEntry entry, void* arg, WorkerCallback callback) noexcept;

// Closes the handle of the context's thread, if it has one. The thread runs on by itself.
void LetGoOfWorker(PavaneContext& context) noexcept;

} // namespace brixen::pvn
