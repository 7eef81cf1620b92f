// An allocator for test programs that counts blocks and fails on demand. A program that uses anything of this
// header gets its own global operator new and delete, all forms, over malloc and free; the others keep
// theirs.
//
// One count for all threads. Memory taken from malloc directly (the C library's own) is not seen.
#pragma once

#include <cstddef>

#include <gtest/gtest.h>

namespace pavane_test {

// Blocks that operator new gave out and that were not deleted yet.
std::size_t LiveBlocks() noexcept;
// Calls of operator new since the program started, failed ones among them.
std::size_t AllocationCount() noexcept;
// Bytes that these calls asked for, all in all.
std::size_t AllocatedBytes() noexcept;

// While it lives, the n-th allocation from now fails (1 is the next one), once: std::bad_alloc, or null from
// the nothrow forms. One at a time.
class FailNthAllocation {
public:
    explicit FailNthAllocation(std::size_t n) noexcept;
    ~FailNthAllocation();
    FailNthAllocation(const FailNthAllocation&) = delete;
    FailNthAllocation& operator=(const FailNthAllocation&) = delete;

    // Whether the n-th allocation was reached.
    bool HasFailed() const noexcept;
};

// Runs `run` once as it is (so that what is made once is there), then with its first allocation failing, its
// second, and so on, until a run gets through without reaching the failing one. Expects that no run leaves a
// block behind. `run` catches what it may throw. Returns the number of runs that met a failure.
template <class Run>
std::size_t ForEveryFailingAllocation(Run&& run) {
    run();
    for (std::size_t n = 1;; ++n) {
        const std::size_t before = LiveBlocks();
        bool failed = false;
        {
            const FailNthAllocation failure(n);
            run();
            failed = failure.HasFailed();
        }
        EXPECT_EQ(LiveBlocks(), before) << "blocks left behind when allocation " << n << " fails";
        if (!failed || testing::Test::HasFailure()) return n - 1;
    }
}

} // namespace pavane_test
