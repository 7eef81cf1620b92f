#include "dictionaries/store/fast_array.h"

#include <algorithm>
#include <new>
#include <utility>

namespace kestrel_private {
namespace {

constexpr std::size_t kBlocksAtATime = 10;

// Putting a key into the index costs as much as comparing this many keys of a bucket.
constexpr std::uint64_t kScannedForOneIndexed = 8;
// Below this many comparisons no index pays.
constexpr std::uint64_t kFewestScanned = 256;

// Longer keys are indexed only while they come to at most kIndexedForOneStored times the bytes of all keys.
// The keys of a file may share bytes and be listed again and again.
constexpr std::size_t kLongestIndexedAnyway = 1023;
constexpr std::uint64_t kIndexedForOneStored = 4;

} // namespace

std::size_t FastArray::BlockOf(std::uint32_t id) const {
    const auto holds = [&](std::size_t block) {
        return id - blocks[block]->firstId < blocks[block]->entryCount;
    };
    // Right at once when there is one file alone, or blocks filled at run time alone.
    const std::size_t guess = std::min<std::size_t>(id / FastArrayBlock::kRunTimeEntries, blocks.size() - 1);
    if (holds(guess)) return guess;
    const auto next =
        std::upper_bound(blocks.begin(), blocks.end(), id,
                         [](std::uint32_t value, const auto& block) { return value < block->firstId; });
    return static_cast<std::size_t>(next - blocks.begin()) - 1;
}

FastArray::Place FastArray::PlaceOf(std::uint32_t id) const {
    FastArrayBlock* const block = blocks[BlockOf(id)].get();
    return {block, id - block->firstId};
}

std::string_view FastArray::KeyOf(std::uint32_t id) const {
    const Place place = PlaceOf(id);
    return place.block->keys.At(place.entry).Text();
}

std::vector<std::uint32_t> FastArray::Bucket(std::uint32_t bucket) const {
    std::vector<std::uint32_t> ids;
    buckets.ForEachId(bucket, [&](std::uint32_t id) { ids.push_back(id); });
    return ids;
}

std::optional<std::uint32_t> FastArray::FindFromFile(std::string_view key, std::uint32_t bucket) const {
    const FileNumbers<std::uint32_t> ids = buckets.FromFile(bucket);
    const std::uint32_t limit = buckets.FileLimit();
    if (ids.Size() == 0 || limit == 0) return std::nullopt;
    const TextColumn& keys = PlaceOf(0).block->keys;
    for (std::size_t i = 0; i < ids.Size(); ++i) {
        ++scanned;
        if (ids[i] < limit && keys.Equals(ids[i], key)) return ids[i];
    }
    return std::nullopt;
}

std::optional<std::uint32_t> FastArray::FindInBucket(std::string_view key, std::uint32_t bucket) const {
    if (const auto found = FindFromFile(key, bucket)) return found;
    for (const std::uint32_t id : buckets.Added(bucket)) {
        ++scanned;
        const Place place = PlaceOf(id);
        if (place.block->keys.Equals(place.entry, key)) return id;
    }
    return std::nullopt;
}

void FastArray::BuildIndexIfWorthwhile() const {
    if (scanned < kFewestScanned || scanned / kScannedForOneIndexed < buckets.Size()) return;
    scanned = 0;
    try {
        index.Start(std::min<std::size_t>(buckets.Size(), totalIds));
    } catch (const std::bad_alloc&) {
        return; // the buckets go on answering
    }
    indexIsWhole = true;
    std::uint64_t left = kIndexedForOneStored * keyBytes;
    for (std::uint32_t bucket = 0; bucket < kBucketCount; ++bucket) {
        buckets.ForEachId(bucket, [&](std::uint32_t id) {
            const std::string_view key = KeyOf(id);
            // A file may list an id in a bucket that no search for its key looks into.
            if (KeyBucket(key) == bucket && TakesIntoIndex(key, left)) index.Insert(key, {id, Value(id)});
        });
    }
}

bool FastArray::TakesIntoIndex(std::string_view key, std::uint64_t& left) const {
    if (key.size() <= kLongestIndexedAnyway) return true;
    // After the first one left out none is taken: the index holds the first id of a key or none.
    if (key.size() > left) indexIsWhole = false;
    if (indexIsWhole) left -= key.size();
    return indexIsWhole;
}

bool FastArray::IsAnsweredByIndex(std::string_view key) const {
    return index.IsBuilt() && (indexIsWhole || key.size() <= kLongestIndexedAnyway);
}

std::optional<std::uint32_t> FastArray::Find(std::string_view key) const {
    if (IsAnsweredByIndex(key)) {
        const auto entry = index.Find(key);
        return entry ? std::optional(entry->id) : std::nullopt;
    }
    const auto found = FindInBucket(key, KeyBucket(key));
    if (!index.IsBuilt()) BuildIndexIfWorthwhile();
    return found;
}

std::optional<ValueBytes> FastArray::FindValue(std::string_view key) const {
    if (IsAnsweredByIndex(key)) {
        const auto entry = index.Find(key);
        return entry ? std::optional(entry->value) : std::nullopt;
    }
    const auto id = Find(key);
    return id ? std::optional(Value(*id)) : std::nullopt;
}

ValueBytes FastArray::Value(std::uint32_t id) const {
    if (id >= totalIds) return {};
    const Place place = PlaceOf(id);
    return place.block->IsDropped(place.entry) ? ValueBytes{} : place.block->values.At(place.entry);
}

std::optional<ValueBytes> FastArray::Note(std::uint32_t id) const {
    if (id >= totalIds) return std::nullopt;
    const Place place = PlaceOf(id);
    return place.block->NoteAt(place.entry);
}

void FastArray::ReplaceEntry(std::uint32_t id, std::string_view value, std::optional<std::string_view> note) {
    const Place place = PlaceOf(id);
    place.block->values.Replace(place.entry, value, place.block->entryCount);
    UpdateIndex(id);
    if (note) place.block->ReplaceNote(place.entry, *note);
}

void FastArray::ReserveBlock() {
    if (blocks.size() == blocks.capacity()) blocks.reserve(blocks.size() + kBlocksAtATime);
}

FastArrayBlock& FastArray::CurrentBlock() {
    if (currentBlock < 0) {
        ReserveBlock();
        auto block = std::make_unique<FastArrayBlock>();
        block->firstId = totalIds;
        blocks.push_back(std::move(block));
        currentBlock = static_cast<std::int32_t>(blocks.size() - 1);
    }
    return *blocks[static_cast<std::size_t>(currentBlock)];
}

std::uint32_t FastArray::Add(std::string_view key, std::string_view value,
                             std::optional<std::string_view> note) {
    if (const auto found = Find(key)) {
        ReplaceEntry(*found, value, note);
        return *found;
    }
    const std::uint32_t id = totalIds;
    if (id == kMostIds) return kNoId;
    FastArrayBlock& block = CurrentBlock();
    const std::uint32_t bucket = KeyBucket(key);
    buckets.Reserve(bucket);
    block.Append(key, value, note);
    buckets.Append(bucket, id);
    ++totalIds;
    CountLive(1);
    keyBytes += key.size();
    if (block.entryCount == FastArrayBlock::kRunTimeEntries) currentBlock = -1;
    InsertIntoIndex(id);
    return id;
}

void FastArray::InsertIntoIndex(std::uint32_t id) {
    if (!index.IsBuilt()) return;
    try {
        index.Insert(KeyOf(id), {id, Value(id)});
    } catch (const std::bad_alloc&) {
        index.Clear();
    }
}

void FastArray::AddBlock(FastArrayBlock block, const BucketLists& lists) {
    if (block.firstId != 0 && totalIds != 0 && block.firstId != totalIds) return;
    if (block.entryCount > kMostIds - totalIds) return;
    if (totalIds != 0) {
        AddFurtherBlock(std::move(block), lists);
    } else if (block.liveCount != 0) {
        AddFirstBlock(std::move(block), lists);
    }
}

void FastArray::AddFirstBlock(FastArrayBlock block, const BucketLists& lists) {
    ReserveBlock();
    auto taken = std::make_unique<FastArrayBlock>(std::move(block));
    taken->firstId = 0;
    buckets.TakeFile(lists, taken->entryCount);
    TakeBlock(std::move(taken));
}

void FastArray::TakeBlock(std::unique_ptr<FastArrayBlock> block) noexcept {
    totalIds += block->entryCount;
    CountLive(block->liveCount);
    keyBytes += block->keys.AreaSize();
    blocks.push_back(std::move(block));
    // What is added later must not shift these ids.
    currentBlock = -1;
    index.Clear();
    scanned = 0;
}

void FastArray::CountLive(std::uint32_t more) noexcept {
    liveEntries += std::min(more, UINT32_MAX - liveEntries);
}

} // namespace kestrel_private
