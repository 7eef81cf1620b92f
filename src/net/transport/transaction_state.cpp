#include "net/transport/transaction_state.h"

#include "frame/log.h"
#include "net/transport/transport_error.h"

#include <algorithm>
#include <cstring>
#include <new>
#include <utility>

namespace brixen::pvn {
namespace {

constexpr std::uint32_t kGrowth = 8192; // bytes; the capacity is a multiple of it

} // namespace

TransactionState::Reference TransactionState::Make(const char* body, NativeEvent doneEvent) {
    return Reference(new TransactionState(body, doneEvent));
}

void TransactionState::Release() noexcept {
    if (references.fetch_sub(1) == 1) delete this;
}

void TransactionState::OnNotice(NativeHttp request, HttpNotice notice, std::uint32_t number) noexcept {
    if (notice == HttpNotice::kClosed) return Release();
    Step step = Step::kNone;
    char* target = nullptr;
    std::uint32_t size = 0;
    {
        const std::lock_guard guard(lock);
        if (!abandoned) step = Advance(notice, number);
        if (step == Step::kNone) return;
        if (step == Step::kRead) {
            target = buffer.get() + length;
            size = wanted;
        }
        ++steps;
        ++references;
    }
    // Without the lock, because the system may notify inside of these calls.
    switch (step) {
    case Step::kReceive: ReceiveResponse(request); break;
    case Step::kQuery: QueryDataAvailable(request); break;
    case Step::kRead: ReadData(request, target, size); break;
    case Step::kNone: break;
    }
    EndStep();
}

// The waiter, and with it the request, may be gone as soon as the lock is free.
void TransactionState::EndStep() noexcept {
    {
        const std::lock_guard guard(lock);
        if (--steps == 0) stepsEnded.notify_all();
    }
    Release();
}

TransactionState::Step TransactionState::Advance(HttpNotice notice, std::uint32_t number) noexcept {
    switch (notice) {
    case HttpNotice::kSent: return Step::kReceive;
    case HttpNotice::kHeaders: return Step::kQuery;
    case HttpNotice::kDataAvailable: return MakeRoom(number);
    case HttpNotice::kRead: return TakeRead(number);
    case HttpNotice::kError: return Finish(number != 0 ? LogTransportError(number) : kStatusSuccess);
    case HttpNotice::kSecureFailure:
        PvnLog("%s: %s: windows secure failure: %ld\n", kLogComponent, kLogInfo, static_cast<long>(number));
        break;
    case HttpNotice::kClosed: break;
    }
    return Step::kNone;
}

TransactionState::Step TransactionState::MakeRoom(std::uint32_t available) noexcept {
    if (available > kLongestAnswer - length) return Finish(kStatusCallNoMemory);
    wanted = available;
    const std::uint32_t needed = length + available + 1;
    if (needed > capacity) Reallocate((needed - 1 + kGrowth) / kGrowth * kGrowth);
    // Kept: without memory, and when the capacity is exactly what is needed, no read follows, and the call
    // ends by its time limit.
    return capacity > needed ? Step::kRead : Step::kNone;
}

// The memory at least doubles, so that a long answer is not copied for each of its parts.
void TransactionState::Reallocate(std::uint32_t newCapacity) noexcept {
    if (newCapacity > allocated) {
        std::uint32_t size = std::max(newCapacity, std::min(2 * allocated, kLongestAnswer));
        std::unique_ptr<char[]> larger(new (std::nothrow) char[size]);
        if (!larger && size > newCapacity) larger.reset(new (std::nothrow) char[size = newCapacity]);
        if (!larger) return;
        if (length > 0) std::memcpy(larger.get(), buffer.get(), length);
        buffer = std::move(larger);
        allocated = size;
    }
    capacity = newCapacity;
}

TransactionState::Step TransactionState::TakeRead(std::uint32_t count) noexcept {
    length += std::min(count, wanted);
    wanted = 0;
    TerminateText();
    if (count > 0) return Step::kQuery;
    complete = 1;
    return Finish(kStatusSuccess);
}

// An answer of 0 bytes may have no buffer.
void TransactionState::TerminateText() noexcept {
    if (length < capacity) buffer[length] = '\0';
}

TransactionState::Step TransactionState::Finish(Status result) noexcept {
    status = result;
    abandoned = true;
    SignalEvent(doneEvent);
    return Step::kNone;
}

Status TransactionState::Abandon(std::string& response) {
    std::unique_lock guard(lock);
    abandoned = true;
    // The system may give the number of a closed request to the next one, which a late step would then reach.
    stepsEnded.wait(guard, [this] { return steps == 0; });
    if (complete == 1 && buffer) response.append(buffer.get());
    return status;
}

} // namespace brixen::pvn
