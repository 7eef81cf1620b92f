#include "view/scope/scope_table.h"

#include <bit>
#include <utility>

namespace brixen::zeve {
namespace {

constexpr std::size_t kFirstCapacity = 8;
constexpr std::size_t kLargestCountWithoutIndex = 8;
// A bucket then has four names on average.
constexpr std::size_t kLargestCountInBuckets = std::size_t{ScopeTable::kBucketCount} * 4;

} // namespace

std::size_t ScopeTable::Count() const {
    return records.size() + static_cast<std::size_t>(std::popcount(plainNumbers));
}

const ScopeTable::Record* ScopeTable::RecordOf(const ScopeName& name) const {
    if (!index) {
        for (const Record& record : records) {
            if (record.Is(name)) return &record;
        }
        return nullptr;
    }
    if (!index->byName.empty()) {
        const auto found = index->byName.find(name.text);
        return found != index->byName.end() ? &records[found->second] : nullptr;
    }
    for (std::uint32_t place = index->heads[name.hash % kBucketCount]; place != 0;) {
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

void ScopeTable::Add(const ScopeName& name, const char* storedName, std::int64_t number, const char* string) {
    MakeRoom();
    const auto place = static_cast<std::uint32_t>(records.size());
    const Record record{storedName, name.text.size(), number, string, name.hash, 0};
    if (index && !index->byName.empty()) {
        index->byName.emplace(record.Name(), place);
    }
    records.push_back(record);
    if (index) {
        LinkIntoBucket(place);
    }
    held |= std::uint64_t{1} << name.mark;
    if (name.IsListed()) {
        plainNumbers &= ~(std::uint32_t{1} << name.mark);
    }
}

void ScopeTable::MakeRoom() {
    if (records.size() == records.capacity()) {
        records.reserve(records.empty() ? kFirstCapacity : records.size() * 2);
    }
    if (records.size() == kLargestCountWithoutIndex) {
        MakeIndex();
    } else if (records.size() == kLargestCountInBuckets) {
        OrderByName();
    }
}

void ScopeTable::MakeIndex() {
    std::pmr::polymorphic_allocator<> memory = records.get_allocator();
    index.reset(memory.new_object<Index>(memory.resource()));
    for (std::uint32_t place = 0; place < records.size(); ++place) {
        LinkIntoBucket(place);
    }
}

void ScopeTable::LinkIntoBucket(std::uint32_t place) {
    std::uint32_t& head = index->heads[records[place].hash % kBucketCount];
    records[place].next = head;
    head = place + 1;
}

void ScopeTable::OrderByName() {
    PlacesByName byName(records.get_allocator());
    for (std::uint32_t place = 0; place < records.size(); ++place) {
        byName.emplace(records[place].Name(), place);
    }
    index->byName = std::move(byName);
}

} // namespace brixen::zeve
