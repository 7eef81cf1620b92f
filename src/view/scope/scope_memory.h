// The memory of the scopes that share a pool: a memory resource that counts what it hands out and refuses
// what would pass a limit.
#pragma once

#include <cstddef>
#include <limits>
#include <memory_resource>
#include <new>

namespace brixen::zeve {

// The limit is reached. The operation that threw has changed nothing.
class ScopeMemoryExhausted : public std::bad_alloc {
public:
    const char* what() const noexcept override { return "scope memory exhausted"; }
};

// One thread. The resource outlives everything that it hands out.
class ScopeMemory final : public std::pmr::memory_resource {
public:
    static constexpr std::size_t kUnlimited = std::numeric_limits<std::size_t>::max();

    // Returns the number of bytes that are handed out or charged.
    std::size_t Held() const { return held; }

    // The largest number of bytes to hold; kUnlimited at first. Memory beyond a lower limit stays.
    std::size_t Limit() const { return limit; }
    void SetLimit(std::size_t bytes) { limit = bytes; }

    // Counts bytes that are held elsewhere, for good. Throws ScopeMemoryExhausted.
    void Charge(std::size_t bytes);

private:
    // Throws ScopeMemoryExhausted, and std::bad_alloc when the system has none.
    void* do_allocate(std::size_t bytes, std::size_t alignment) override;
    void do_deallocate(void* room, std::size_t bytes, std::size_t alignment) override;
    bool do_is_equal(const std::pmr::memory_resource& other) const noexcept override {
        return this == &other;
    }

    std::size_t held = 0;
    std::size_t limit = kUnlimited;
};

} // namespace brixen::zeve
