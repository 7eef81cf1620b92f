#include "view/scope_table.h"

#include <limits>

namespace brixen::zeve {
namespace {

// Enough for a view's own attributes with the geometry that the layout writes back.
constexpr std::size_t kFirstCapacity = 16;
constexpr std::size_t kLargestNarrowCount = std::numeric_limits<std::uint8_t>::max();
constexpr std::size_t kFirstWideHeadCount = 1024;

} // namespace

void ScopeTable::Reserve() {
    if (records.size() == records.capacity()) {
        records.reserve(records.empty() ? kFirstCapacity : records.size() * 2);
    }
    if (records.size() >= kLargestNarrowCount && records.size() >= wideHeads.size()) {
        Widen(wideHeads.empty() ? kFirstWideHeadCount : wideHeads.size() * 2);
    }
}

void ScopeTable::Add(const ScopeName& name, std::string_view storedName, std::int64_t number,
                     const char* string) noexcept {
    records.push_back({storedName.data(), storedName.size(), number, string, name.hash, Head(name)});
    const std::uint32_t place = static_cast<std::uint32_t>(records.size());
    if (wideHeads.empty()) {
        heads[name.bucket] = static_cast<std::uint8_t>(place);
    } else {
        wideHeads[WideBucket(name.hash)] = place;
    }
}

std::size_t ScopeTable::WideBucket(std::uint32_t hash) const {
    // 63 is -1 to the low six bits, so those alone would spread names badly.
    const std::uint64_t mixed = hash * 0x9E3779B97F4A7C15u;
    return static_cast<std::size_t>(mixed >> 32) & (wideHeads.size() - 1);
}

void ScopeTable::Widen(std::size_t headCount) {
    wideHeads = std::vector<std::uint32_t>(headCount);
    for (std::uint32_t place = 1; ScopeVariable & record : records) {
        std::uint32_t& head = wideHeads[WideBucket(record.hash)];
        record.next = head;
        head = place++;
    }
}

} // namespace brixen::zeve
