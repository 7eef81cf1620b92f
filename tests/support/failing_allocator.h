// An allocator for test programs that counts blocks and fails on demand. A program that uses anything of this
// header has all forms of the global operators new and delete replaced, over malloc and free; other programs
// keep theirs.
//
// One count for all threads. Memory from malloc itself (such as the C library's own) is not counted.
#pragma once

#include <cstddef>
#include <string>

#include <gtest/gtest.h>

namespace pavane_test {

// Returns the number of blocks that operator new returned and that were not deleted yet.
std::size_t LiveBlocks() noexcept;
// Returns the number of calls of operator new since the program started, including failed ones.
std::size_t AllocationCount() noexcept;
// Returns the number of bytes that all these calls requested.
std::size_t AllocatedBytes() noexcept;

// While it lives, the n-th allocation from now fails (1 is the next one), once: std::bad_alloc, or null from
// the nothrow forms. One at a time.
class FailNthAllocation {
public:
    explicit FailNthAllocation(std::size_t n) noexcept;
    ~FailNthAllocation();
    FailNthAllocation(const FailNthAllocation&) = delete;
    FailNthAllocation& operator=(const FailNthAllocation&) = delete;

    // Returns whether the n-th allocation was reached.
    bool HasFailed() const noexcept;
};

// While it lives, keeps the bytes of one block as they are when it is deleted. One at a time.
class KeepDeletedBytes {
public:
    // `block` is what operator new returned, of at least `size` bytes.
    KeepDeletedBytes(const void* block, std::size_t size);
    ~KeepDeletedBytes();
    KeepDeletedBytes(const KeepDeletedBytes&) = delete;
    KeepDeletedBytes& operator=(const KeepDeletedBytes&) = delete;

    // Returns the first `size` bytes; none until the block is deleted.
    std::string Bytes() const;

private:
    std::string kept;
};

// Calls `run` once without a failure (so that objects that are made once exist), then with its first
// allocation failing, its second, and so on, until a call ends before the failing one. Expects that no call
// leaks a block. `run` must catch what it may throw. Returns the number of calls with a failure.
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
        EXPECT_EQ(LiveBlocks(), before) << "blocks leaked when allocation " << n << " fails";
        if (!failed || testing::Test::HasFailure()) return n - 1;
    }
}

} // namespace pavane_test
