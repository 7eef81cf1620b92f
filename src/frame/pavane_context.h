// The one global record of an initialized library and the last-error word.
//
// Everything here belongs to the host's thread and has no lock; a worker may read the record.
#pragma once

#include "frame/platform/frame_platform.h"
#include "frame/status.h"

#include <atomic>
#include <cstddef>
#include <cstdint>

namespace brixen::pvn {

// Percent from 0 to 100, and a status that counts at 100. Called on the worker's thread.
using WorkerCallback = void (*)(std::int32_t percent, Status status);
// A worker's body. Calls callback(100, status) exactly once; what it returns becomes the thread's exit code.
using WorkerEntry = Status (*)(void* arg, WorkerCallback callback);

// Any helper object that is to live as long as the record.
class AuxObject {
public:
    AuxObject() = default;
    AuxObject(const AuxObject&) = delete;
    AuxObject& operator=(const AuxObject&) = delete;
    virtual ~AuxObject() = default;
};

inline constexpr std::size_t kHostLocaleSize = 25;       // bytes, the terminator among them
inline constexpr std::size_t kHostDisplayNameSize = 100; // bytes, the terminator among them

// Values of workflowPhase.
inline constexpr std::uint32_t kPhaseIdle = 0;    // no pane was entered yet
inline constexpr std::uint32_t kPhaseRunning = 1; // the first pane was entered
inline constexpr std::uint32_t kPhaseEnded = 2;   // an end state was reached

struct PavaneContext {
    std::uint32_t hostOptions = 0;  // as the host gave them
    std::int32_t hostApp = 0;       // as the host gave it; goes into every bag
    AuxObject* auxObject = nullptr; // owned: deleted by Pavane_Terminate

    // The worker-thread slot (see worker_thread.h): a thread gets its address as its only argument.
    struct ThreadSlot {
        WorkerEntry threadEntry = nullptr;
        void* threadArg = nullptr;
        WorkerCallback threadCallback = nullptr;
    } slot;
    NativeThread threadHandle = nullptr; // the latest worker's handle; closed, never waited for

    char hostLocale[kHostLocaleSize] = {};           // mapped locale such as "en_US", NUL-terminated
    char hostDisplayName[kHostDisplayNameSize] = {}; // UTF-8, NUL-terminated; empty until first asked for
    std::uint32_t localeIsFallback = 0;              // 1: hostLocale came from the fallback lookup
    std::uint32_t workflowPhase = kPhaseIdle;
};

// Null: the library is not initialized. Owned; a plain pointer, since a destructor of it would run while the
// library is being unloaded.
extern PavaneContext* gPavaneContext;
// The status of the latest frame operation. Outlives the record. Any thread may read it, and a call that is
// refused during a run writes it from any thread.
extern std::atomic<Status> gLastError;
// The workflow whose resources are already prepared; 0 for none.
extern std::uint16_t gPreloadedWorkflow;

// Without a context, does nothing.
void SetWorkflowPhase(std::uint32_t phase) noexcept;

} // namespace brixen::pvn
