#include "view/scope/scope_string_pool.h"

#include <algorithm>
#include <cstring>
#include <functional>

namespace brixen::zeve {

ScopeStringPool::~ScopeStringPool() {
    for (const Block& block : blocks) memory.deallocate(block.bytes, block.size, 1);
}

std::string_view ScopeStringPool::Store(std::string_view text) {
    const std::size_t needed = text.size() + 1;
    if (needed > remaining) AddBlock(std::max(needed, kMinimumBlockSize));
    char* stored = cursor;
    if (!text.empty()) std::memcpy(stored, text.data(), text.size());
    stored[text.size()] = 0;
    cursor += needed;
    remaining -= needed;
    return {stored, text.size()};
}

bool ScopeStringPool::Holds(const char* text) const {
    const auto beginsAfter = [](const char* at, const Block& block) {
        return std::less<>()(at, block.bytes);
    };
    const auto next = std::upper_bound(blocks.begin(), blocks.end(), text, beginsAfter);
    return next != blocks.begin() && std::less<>()(text, (next - 1)->bytes + (next - 1)->size);
}

void ScopeStringPool::AddBlock(std::size_t size) {
    if (blocks.size() == blocks.capacity()) blocks.reserve(blocks.size() * 2 + 4);
    const Block block{static_cast<char*>(memory.allocate(size, 1)), size};
    const auto byAddress = [](const Block& a, const Block& b) { return std::less<>()(a.bytes, b.bytes); };
    blocks.insert(std::upper_bound(blocks.begin(), blocks.end(), block, byAddress), block);
    cursor = block.bytes;
    remaining = size;
}

} // namespace brixen::zeve
