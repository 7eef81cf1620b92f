#include "frame/brief_lock.h"

#include "frame/platform/frame_platform.h"

namespace brixen::pvn {
namespace {

bool Take(std::atomic_flag& flag) noexcept {
    if (!flag.test_and_set()) return true;
    const std::uint32_t start = TickCount();
    while (flag.test_and_set()) {
        if (TickCount() - start >= kLongestWaitForLock) return false;
        YieldThread();
    }
    return true;
}

} // namespace

BriefLock::BriefLock(std::atomic_flag& ofMany) noexcept : flag(ofMany), isHeld(Take(ofMany)) {}

BriefLock::~BriefLock() {
    if (isHeld) flag.clear();
}

} // namespace brixen::pvn
