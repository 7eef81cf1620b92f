// A call on a thread of its own.
#pragma once

#include "frame/platform/frame_platform.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <functional>

namespace pavane_test {

// Makes the call on another thread and waits until it has ended. A call that hangs fails the test.
inline void OnAnotherThread(std::function<void()> call) {
    constexpr std::uint32_t longWait = 60'000; // milliseconds; only a failing test takes them
    constexpr unsigned long ended = 77;
    const auto routine = [](void* argument) -> unsigned long {
        (*static_cast<std::function<void()>*>(argument))();
        return ended;
    };
    const brixen::pvn::NativeThread thread = brixen::pvn::StartThread(routine, &call);
    ASSERT_NE(thread, nullptr);
    unsigned long code = 0;
    EXPECT_TRUE(brixen::pvn::WaitForThread(thread, longWait, &code));
    EXPECT_EQ(code, ended);
    brixen::pvn::CloseThread(thread);
}

} // namespace pavane_test
