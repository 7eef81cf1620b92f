#include "view/scope/scope_string_pool.h"

#include <algorithm>
#include <cstring>

namespace brixen::zeve {

std::string_view ScopeStringPool::Store(std::string_view text) {
    const std::size_t needed = text.size() + 1;
    if (needed > remaining) {
        AddBlock(std::max(needed, kMinimumBlockSize));
    }
    char* stored = cursor;
    if (!text.empty()) {
        std::memcpy(stored, text.data(), text.size());
    }
    stored[text.size()] = 0;
    cursor += needed;
    remaining -= needed;
    return {stored, text.size()};
}

void ScopeStringPool::Clear() noexcept {
    if (blocks.empty()) {
        return;
    }
    // The first block has the usual size unless its text was a giant, and then it is better given back.
    blocks.resize(blocks.front().size == kMinimumBlockSize ? 1 : 0);
    cursor = blocks.empty() ? nullptr : blocks.front().bytes.get();
    remaining = blocks.empty() ? 0 : kMinimumBlockSize;
}

void ScopeStringPool::AddBlock(std::size_t size) {
    blocks.push_back({std::make_unique_for_overwrite<char[]>(size), size});
    cursor = blocks.back().bytes.get();
    remaining = size;
}

} // namespace brixen::zeve
