// The names and texts of scopes: a bump allocator whose texts live as long as the pool itself. Single texts
// are never freed. One thread.
#pragma once

#include "view/scope/scope_memory.h"

#include <cstddef>
#include <memory_resource>
#include <string_view>
#include <vector>

namespace brixen::zeve {

class ScopeStringPool {
public:
    static constexpr std::size_t kMinimumBlockSize = 3900; // bytes

    ScopeStringPool() = default;
    ScopeStringPool(const ScopeStringPool&) = delete;
    ScopeStringPool& operator=(const ScopeStringPool&) = delete;
    ~ScopeStringPool();

    // Copies the text and adds a NUL, which the result does not count. Throws std::bad_alloc, and then the
    // pool is as before.
    std::string_view Store(std::string_view text);

    // Whether `text` points into this pool.
    [[nodiscard]] bool Holds(const char* text) const;

    // The memory of the pool, and of the variables of the scopes that keep their texts in it.
    ScopeMemory& Memory() { return memory; }

    std::size_t BlockCount() const { return blocks.size(); }

private:
    struct Block {
        char* bytes; // from `memory`
        std::size_t size;
    };

    void AddBlock(std::size_t size);

    ScopeMemory memory;
    std::pmr::vector<Block> blocks{&memory}; // in the order of their addresses
    char* cursor = nullptr;                  // into the newest block
    std::size_t remaining = 0;               // bytes from the cursor to the end of that block
};

} // namespace brixen::zeve
