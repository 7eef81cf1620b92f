// Where scopes keep names and texts: a bump allocator whose texts live as long as the pool itself. Single
// texts are never freed. One thread.
#pragma once

#include <cstddef>
#include <memory>
#include <string_view>
#include <vector>

namespace brixen::zeve {

class ScopeStringPool {
public:
    static constexpr std::size_t kMinimumBlockSize = 3900; // bytes

    ScopeStringPool() = default;
    ScopeStringPool(const ScopeStringPool&) = delete;
    ScopeStringPool& operator=(const ScopeStringPool&) = delete;

    // Copies the text and a NUL behind it; the NUL is not counted in the result. Throws std::bad_alloc, and
    // then the pool is as before.
    std::string_view Store(std::string_view text);

    // Ends the life of every text, but keeps one block for the texts to come.
    void Clear() noexcept;

    std::size_t BlockCount() const { return blocks.size(); }

private:
    struct Block {
        std::unique_ptr<char[]> bytes;
        std::size_t size = 0;
    };

    void AddBlock(std::size_t size);

    std::vector<Block> blocks; // the newest is the last
    char* cursor = nullptr;    // into the newest block
    std::size_t remaining = 0; // bytes behind the cursor in that block
};

} // namespace brixen::zeve
