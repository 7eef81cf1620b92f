// A lock for a moment, such as the writing of one line. Nobody hangs on it: a thread that ends with its
// process while it has the lock never gives it back.
#pragma once

#include <atomic>
#include <cstdint>

namespace brixen::pvn {

// How long a thread waits for the flag, in milliseconds. A holder that takes longer counts as ended.
inline constexpr std::uint32_t kLongestWaitForLock = 1000;

// Has the flag to itself for its own lifetime, if it gets it. The flag is borrowed. Any thread.
class BriefLock {
public:
    explicit BriefLock(std::atomic_flag& ofMany) noexcept;
    ~BriefLock();
    BriefLock(const BriefLock&) = delete;
    BriefLock& operator=(const BriefLock&) = delete;

    // Returns false after kLongestWaitForLock without success. The flag is the other thread's then.
    [[nodiscard]] bool IsHeld() const noexcept { return isHeld; }

private:
    std::atomic_flag& flag;
    bool isHeld;
};

} // namespace brixen::pvn
