// The context of an initialized library: the one record from Pavane_Initialize to Pavane_Terminate.
//
// It belongs to the host's thread and has no lock; a worker may read it.
#pragma once

#include "frame/platform/frame_platform.h"
#include "frame/status.h"

#include <cstddef>
#include <cstdint>

namespace brixen::pvn {

// Reports progress: percent from 0 to 100, and a status that counts at 100. Returns whether the worker is to
// go on; false is its only news of a cancel. Called on the worker's thread.
using WorkerCallback = bool (*)(std::uint16_t percent, Status status);
// The body of a worker. It calls callback(100, status) exactly once, as the very last thing, and its result
// becomes the exit code of the thread.
using WorkerEntry = Status (*)(void* arg, WorkerCallback callback);

// Base of a helper object that lives as long as the context.
class AuxObject {
public:
    AuxObject() = default;
    AuxObject(const AuxObject&) = delete;
    AuxObject& operator=(const AuxObject&) = delete;
    virtual ~AuxObject() = default;
};

inline constexpr std::size_t kHostLocaleSize = 25;       // bytes, including the terminator
inline constexpr std::size_t kHostDisplayNameSize = 100; // bytes, including the terminator

// Values of workflowPhase.
inline constexpr std::uint32_t kPhaseIdle = 0;    // no pane was entered yet
inline constexpr std::uint32_t kPhaseRunning = 1; // the first pane was entered
inline constexpr std::uint32_t kPhaseEnded = 2;   // an end state was reached

struct PavaneContext {
    std::uint32_t hostOptions = 0;  // as the host passed them
    std::int32_t hostApp = 0;       // as the host passed it; copied into every bag
    AuxObject* auxObject = nullptr; // owned: Pavane_Terminate deletes it

    // The worker-thread slot (see worker_thread.h). A thread gets its address as its only argument.
    struct ThreadSlot {
        WorkerEntry threadEntry = nullptr;
        void* threadArg = nullptr;
        WorkerCallback threadCallback = nullptr;
    } slot;
    NativeThread threadHandle = nullptr; // of the latest worker, owned; closed without waiting

    char hostLocale[kHostLocaleSize] = {};           // shipped locale such as "en_US", NUL-terminated
    char hostDisplayName[kHostDisplayNameSize] = {}; // UTF-8, NUL-terminated; empty before the first refresh
    std::uint32_t localeIsFallback = 0;              // 1: hostLocale came from the fallback lookup
    std::uint32_t workflowPhase = kPhaseIdle;
};

// Deletes the helper object, then closes the handle of the worker, which runs on by itself. Clears both
// fields.
void ReleaseHoldings(PavaneContext& context) noexcept;

} // namespace brixen::pvn
