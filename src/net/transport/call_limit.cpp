#include "net/transport/call_limit.h"

#include "frame/platform/frame_platform.h"

namespace brixen::pvn {

constexpr char16_t kCancelEventName[] = u"CancelTransactionEvent";

EventHandle MakeCancelEvent() noexcept { return EventHandle(MakeEvent(kCancelEventName)); }

EventHandle MakeClearCancelEvent() noexcept {
    EventHandle event = MakeCancelEvent();
    if (event) ClearEvent(event.get());
    return event;
}

void CancelTransaction() noexcept { SignalEventNamed(kCancelEventName); }

Status StatusOfWait(WaitResult result) noexcept {
    switch (result) {
    case WaitResult::kSecond: return kStatusCallCanceled;
    case WaitResult::kTimeOut: return kStatusCallTimedOut;
    default: return kStatusSuccess;
    }
}

CallLimit::CallLimit(std::uint16_t timeoutSeconds) noexcept
    : cancel(MakeCancelEvent()), start(TickCount()), milliseconds(timeoutSeconds * std::uint32_t{1000}) {}

std::uint32_t CallLimit::MillisecondsLeft() const noexcept {
    const std::uint32_t elapsed = TickCount() - start;
    return elapsed < milliseconds ? milliseconds - elapsed : 0;
}

WaitResult CallLimit::Await(NativeEvent done) const noexcept {
    return WaitForEither(done, cancel.get(), MillisecondsLeft());
}

} // namespace brixen::pvn
