#include "frame/platform/posix/frame_twin.h"

#include <chrono>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <new>
#include <pthread.h>
#include <sched.h>

namespace brixen::pvn {
namespace {

// What a thread and its handle share; the later of the two frees it.
struct ThreadState {
    ThreadRoutine routine;
    void* argument;
    std::mutex guard;
    std::condition_variable ended;
    bool hasEnded = false;
    unsigned long exitCode = 0;
};

using SharedState = std::shared_ptr<ThreadState>;

void* RunRoutine(void* argument) {
    const std::unique_ptr<SharedState> held(static_cast<SharedState*>(argument));
    ThreadState& state = **held;
    const unsigned long code = state.routine(state.argument);
    const std::lock_guard lock(state.guard);
    state.exitCode = code;
    state.hasEnded = true;
    state.ended.notify_all();
    return nullptr;
}

bool IsRefused() {
    int& starts = GetFrameTwin().startsUntilRefusal;
    return starts > 0 && --starts == 0;
}

SharedState& StateOf(NativeThread thread) { return *reinterpret_cast<SharedState*>(thread); }

} // namespace

NativeThread StartThread(ThreadRoutine routine, void* argument) noexcept try {
    if (IsRefused()) return nullptr;
    auto state = std::make_shared<ThreadState>();
    state->routine = routine;
    state->argument = argument;
    auto handle = std::make_unique<SharedState>(state);
    auto forThread = std::make_unique<SharedState>(state);
    pthread_t thread;
    if (pthread_create(&thread, nullptr, RunRoutine, forThread.get()) != 0) return nullptr;
    static_cast<void>(forThread.release()); // belongs to the thread now
    pthread_detach(thread);
    ++GetFrameTwin().openThreadHandles;
    return reinterpret_cast<NativeThread>(handle.release());
} catch (const std::bad_alloc&) {
    return nullptr;
}

void CloseThread(NativeThread thread) noexcept {
    delete &StateOf(thread);
    --GetFrameTwin().openThreadHandles;
}

bool WaitForThread(NativeThread thread, std::uint32_t milliseconds, unsigned long* exitCode) noexcept {
    ThreadState& state = *StateOf(thread);
    std::unique_lock lock(state.guard);
    if (!state.ended.wait_for(lock, std::chrono::milliseconds(milliseconds), [&] { return state.hasEnded; }))
        return false;
    *exitCode = state.exitCode;
    return true;
}

void YieldThread() noexcept { sched_yield(); }

} // namespace brixen::pvn
