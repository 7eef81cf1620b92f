#include "view/scope_table.h"

#include <bit>

namespace brixen::zeve {
namespace {

constexpr std::size_t kFirstCapacity = 8;
constexpr std::size_t kLargestCountWithoutHeads = 8;
// Names in a bucket, on average, before there are more buckets.
constexpr std::size_t kLargestLoad = 4;

} // namespace

std::size_t ScopeTable::Count() const {
    return records.size() + static_cast<std::size_t>(std::popcount(plainNumbers));
}

const ScopeTable::Record* ScopeTable::RecordOf(const ScopeName& name) const {
    if (heads.empty()) {
        for (const Record& record : records) {
            if (record.Is(name)) return &record;
        }
        return nullptr;
    }
    for (std::uint32_t place = heads[BucketOf(name.hash)]; place != 0;) {
        const Record& record = records[place - 1];
        if (record.Is(name)) return &record;
        place = record.next;
    }
    return nullptr;
}

FoundValue ScopeTable::FindRecord(const ScopeName& name) const {
    const Record* record = RecordOf(name);
    return record ? FoundValue{record->number, record->string} : FoundValue{};
}

bool ScopeTable::Replace(const ScopeName& name, std::int64_t number, const char* string) {
    auto* record = MayHold(name) ? const_cast<Record*>(RecordOf(name)) : nullptr;
    if (record) {
        record->number = number;
        record->string = string;
    }
    return record != nullptr;
}

void ScopeTable::Reserve() {
    if (records.size() == records.capacity()) {
        records.reserve(records.empty() ? kFirstCapacity : records.size() * 2);
    }
    if (records.size() == kLargestCountWithoutHeads) {
        MakeHeads(kBucketCount);
    } else if (!heads.empty() && records.size() >= heads.size() * kLargestLoad) {
        MakeHeads(heads.size() * 8 + 1);
    }
}

void ScopeTable::Add(const ScopeName& name, const char* storedName, std::int64_t number,
                     const char* string) noexcept {
    records.push_back({storedName, name.text.size(), number, string, name.hash, 0});
    if (!heads.empty()) {
        std::uint32_t& head = heads[BucketOf(name.hash)];
        records.back().next = head;
        head = static_cast<std::uint32_t>(records.size());
    }
    held |= std::uint64_t{1} << name.mark;
    if (name.IsListed()) {
        plainNumbers &= ~(std::uint32_t{1} << name.mark);
    }
}

void ScopeTable::MakeHeads(std::size_t count) {
    heads = std::vector<std::uint32_t>(count);
    for (std::uint32_t place = 1; Record & record : records) {
        std::uint32_t& head = heads[BucketOf(record.hash)];
        record.next = head;
        head = place++;
    }
}

} // namespace brixen::zeve
