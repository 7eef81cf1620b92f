// The events of the net platform: the same tests for the native twin and for Windows.
#include "net/platform/net_platform.h"

#include "frame/platform/frame_platform.h"

#include <gtest/gtest.h>

#include <string>

namespace brixen::pvn {
namespace {

constexpr std::uint32_t kLongWait = 60'000; // milliseconds; only a failing test waits that long

// A name of this process's own, so that tests can run side by side.
std::u16string Name() {
    std::u16string name = u"pavane-test-";
    for (const char digit : std::to_string(CurrentProcessNumber())) name += static_cast<char16_t>(digit);
    return name;
}

bool IsSignaled(const EventHandle& event) {
    return WaitForEither(event.get(), nullptr, 0) == WaitResult::kFirst;
}

TEST(NetEvents, ASignalEndsOneWait) {
    const EventHandle event(MakeEvent(nullptr));
    ASSERT_TRUE(event);
    EXPECT_FALSE(IsSignaled(event));
    SignalEvent(event.get());
    EXPECT_TRUE(IsSignaled(event));
    EXPECT_FALSE(IsSignaled(event));
}

TEST(NetEvents, TwoSignalsWithoutAWaitAreOne) {
    const EventHandle event(MakeEvent(nullptr));
    SignalEvent(event.get());
    SignalEvent(event.get());
    EXPECT_TRUE(IsSignaled(event));
    EXPECT_FALSE(IsSignaled(event));
}

TEST(NetEvents, AClearedSignalIsGone) {
    const EventHandle event(MakeEvent(nullptr));
    SignalEvent(event.get());
    ClearEvent(event.get());
    EXPECT_FALSE(IsSignaled(event));
}

TEST(NetEvents, TheFirstOfTwoSignalsCountsAndTheSecondStays) {
    const EventHandle first(MakeEvent(nullptr));
    const EventHandle second(MakeEvent(nullptr));
    SignalEvent(second.get());
    SignalEvent(first.get());
    EXPECT_EQ(WaitForEither(first.get(), second.get(), kLongWait), WaitResult::kFirst);
    EXPECT_EQ(WaitForEither(first.get(), second.get(), kLongWait), WaitResult::kSecond);
    EXPECT_EQ(WaitForEither(first.get(), second.get(), 0), WaitResult::kTimeOut);
}

TEST(NetEvents, EventsOfOneNameAreOneEvent) {
    const EventHandle one(MakeEvent(Name().c_str()));
    const EventHandle same(MakeEvent(Name().c_str()));
    const EventHandle other(MakeEvent(nullptr));
    ASSERT_TRUE(one && same);
    SignalEventNamed(Name().c_str());
    EXPECT_FALSE(IsSignaled(other));
    EXPECT_TRUE(IsSignaled(same));
    EXPECT_FALSE(IsSignaled(one));
}

TEST(NetEvents, ASignalStaysWhileAHandleIsOpen) {
    EventHandle one(MakeEvent(Name().c_str()));
    const EventHandle same(MakeEvent(Name().c_str()));
    SignalEvent(one.get());
    one.reset();
    const EventHandle later(MakeEvent(Name().c_str()));
    EXPECT_TRUE(IsSignaled(later)) << "making it again does not clear it";
}

TEST(NetEvents, AnEventEndsWithItsLastHandle) {
    EventHandle event(MakeEvent(Name().c_str()));
    SignalEvent(event.get());
    event.reset();
    SignalEventNamed(Name().c_str());
    const EventHandle later(MakeEvent(Name().c_str()));
    EXPECT_FALSE(IsSignaled(later));
}

unsigned long SignalIt(void* event) {
    SignalEvent(static_cast<NativeEvent>(event));
    return 0;
}

TEST(NetEvents, ASignalWakesAWaitOnAnotherThread) {
    const EventHandle event(MakeEvent(nullptr));
    const EventHandle never(MakeEvent(nullptr));
    const NativeThread thread = StartThread(SignalIt, event.get());
    ASSERT_TRUE(thread);
    EXPECT_EQ(WaitForEither(never.get(), event.get(), kLongWait), WaitResult::kSecond);
    unsigned long code = 0;
    EXPECT_TRUE(WaitForThread(thread, kLongWait, &code));
    CloseThread(thread);
}

} // namespace
} // namespace brixen::pvn
