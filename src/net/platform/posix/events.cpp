#include "net/platform/posix/net_twin.h"
#include "values/unicode/lenient_text.h"

#include <chrono>
#include <condition_variable>
#include <map>
#include <mutex>
#include <new>
#include <utility>

struct brixen::pvn::NativeEventTag {
    // What all handles of an event share.
    struct Shared {
        bool isSignaled = false;
    };
    std::shared_ptr<Shared> shared;
};

namespace brixen::pvn {
namespace {

using SharedEvent = NativeEventTag::Shared;

// One lock and one condition for all events.
struct Events {
    std::mutex lock;
    std::condition_variable changed;
    std::map<std::u16string, std::weak_ptr<SharedEvent>> named;
};

Events& GetEvents() noexcept {
    static Events events;
    return events;
}

void Signal(SharedEvent& event) noexcept {
    event.isSignaled = true;
    GetEvents().changed.notify_all();
}

// Takes the signal, if there is one.
bool Take(NativeEvent event) noexcept { return event && std::exchange(event->shared->isSignaled, false); }

} // namespace

NativeEvent MakeEvent(const char16_t* name) noexcept try {
    if (IsNetCallRefused(name ? "MakeNamedEvent " + lyr::gen::LenientUtf8(name) : "MakeEvent"))
        return nullptr;
    const std::lock_guard guard(GetEvents().lock);
    std::shared_ptr<SharedEvent> shared;
    if (name) shared = GetEvents().named[name].lock();
    if (!shared) shared = std::make_shared<SharedEvent>();
    if (name) GetEvents().named[name] = shared;
    auto* const handle = new NativeEventTag{shared};
    CountNetHandles(1);
    return handle;
} catch (const std::bad_alloc&) {
    return nullptr;
}

void SignalEvent(NativeEvent event) noexcept {
    const std::lock_guard guard(GetEvents().lock);
    Signal(*event->shared);
}

void ClearEvent(NativeEvent event) noexcept {
    const std::lock_guard guard(GetEvents().lock);
    event->shared->isSignaled = false;
}

void CloseEvent(NativeEvent event) noexcept {
    const std::lock_guard guard(GetEvents().lock);
    delete event;
    CountNetHandles(-1);
}

void SignalEventNamed(const char16_t* name) noexcept {
    if (const auto& onSignal = GetNetTwin().onSignal) onSignal();
    const std::lock_guard guard(GetEvents().lock);
    const auto found = GetEvents().named.find(name);
    if (found == GetEvents().named.end()) return;
    if (const std::shared_ptr<SharedEvent> shared = found->second.lock()) Signal(*shared);
}

WaitResult WaitForEither(NativeEvent first, NativeEvent second, std::uint32_t milliseconds) noexcept {
    const bool isRefused = IsNetCallRefused("WaitForEither " + std::to_string(milliseconds));
    if (const auto& before = GetNetTwin().beforeWait) before();
    if (isRefused) return WaitResult::kFailed;
    std::unique_lock guard(GetEvents().lock);
    WaitResult result = WaitResult::kTimeOut;
    GetEvents().changed.wait_for(guard, std::chrono::milliseconds(milliseconds), [&] {
        if (Take(first))
            result = WaitResult::kFirst;
        else if (Take(second))
            result = WaitResult::kSecond;
        return result != WaitResult::kTimeOut;
    });
    guard.unlock();
    if (const auto& after = GetNetTwin().afterWait) after();
    return result;
}

} // namespace brixen::pvn
