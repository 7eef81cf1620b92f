// The answer of one request while it arrives. The waiting thread and the system's threads share it.
#pragma once

#include "frame/status.h"
#include "net/platform/net_platform.h"

#include <atomic>
#include <condition_variable>
#include <cstdint>
#include <memory>
#include <mutex>
#include <string>

namespace brixen::pvn {

// The longest answer that is accepted, in bytes.
inline constexpr std::uint32_t kLongestAnswer = 32u << 20;

// Walks the request through its stages, notification by notification, and collects the answer. It lives on
// the heap with two references, that of the waiter and that of the request: the system may write to the
// buffer, read the body and notify until the request has closed, which can be long after the waiter has left.
class TransactionState final : public HttpObserver {
public:
    struct Releaser {
        void operator()(TransactionState* state) const noexcept { state->Release(); }
    };
    using Reference = std::unique_ptr<TransactionState, Releaser>;

    // `doneEvent` is borrowed until Abandon returns. The result is the waiter's reference. The second one
    // belongs to the request from the call of ObserveRequest on; it is given back at kClosed.
    [[nodiscard]] static Reference Make(const char* body, NativeEvent doneEvent);

    // What is sent; it lasts as long as the state.
    [[nodiscard]] const std::string& Body() const noexcept { return body; }

    void OnNotice(NativeHttp request, HttpNotice notice, std::uint32_t number) noexcept override;

    // For the waiter, once, when it no longer waits: notifications do nothing from then on, and no call for
    // the request is on its way after the return, so that it can be closed. Appends a
    // complete answer to `response`, up to its first zero byte, and drops any other. Returns the status of
    // the request: 0 unless the system reported an error or the answer is too long. Throws std::bad_alloc.
    [[nodiscard]] Status Abandon(std::string& response);

    // Gives back the request's reference of a request that the system refused to observe.
    void ReleaseRequest() noexcept { Release(); }

private:
    // The next call for the request.
    enum class Step { kNone, kReceive, kQuery, kRead };

    TransactionState(const char* body, NativeEvent doneEvent) : body(body), doneEvent(doneEvent) {}
    ~TransactionState() = default;

    void Release() noexcept;
    void EndStep() noexcept;
    [[nodiscard]] Step Advance(HttpNotice notice, std::uint32_t number) noexcept;
    [[nodiscard]] Step MakeRoom(std::uint32_t available) noexcept;
    [[nodiscard]] Step TakeRead(std::uint32_t count) noexcept;
    void Reallocate(std::uint32_t newCapacity) noexcept;
    void TerminateText() noexcept;
    Step Finish(Status result) noexcept;

    const std::string body;
    std::atomic<int> references = 2;

    // All that follows is guarded by the lock. A read that the system has begun writes to `buffer` without
    // it.
    std::mutex lock;
    std::condition_variable stepsEnded;
    int steps = 0;          // calls for the request that have not returned; each has a reference
    bool abandoned = false; // set when the request has finished or the waiter has left
    std::unique_ptr<char[]> buffer;
    std::uint32_t allocated = 0; // bytes of `buffer`, at least `capacity`
    std::uint32_t capacity = 0;  // bytes that the rule for room counts with
    std::uint32_t length = 0;    // bytes received
    std::uint32_t wanted = 0;    // bytes of the next read
    std::uint32_t complete = 0;  // 1 after the read that returned no more data
    NativeEvent doneEvent;
    Status status = kStatusSuccess;
};

} // namespace brixen::pvn
