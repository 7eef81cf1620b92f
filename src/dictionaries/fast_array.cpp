#include "dictionaries/fast_array.h"

#include <algorithm>
#include <new>
#include <utility>

namespace kestrel_private {
namespace {

constexpr std::size_t kBlocksAtATime = 10;
constexpr std::uint32_t kMostIds = 0x7FFFFFFF;
constexpr std::size_t kLongestMergedKey = 1023; // bytes; longer ones are taken as new

// One key costs about as much to put into the index as to compare in a bucket; below this no index pays.
constexpr std::uint64_t kFewestScanned = 256;

} // namespace

std::size_t FastArray::BlockOf(std::uint32_t id) const {
    const auto holds = [&](std::size_t block) {
        return id - fBlocks[block]->firstId < fBlocks[block]->entryCount;
    };
    // Right at once for blocks filled at run time alone, and for one file alone.
    const std::size_t guess = std::min<std::size_t>(id / FastArrayBlock::kRunTimeEntries, fBlocks.size() - 1);
    if (holds(guess)) return guess;
    const auto behind =
        std::upper_bound(fBlocks.begin(), fBlocks.end(), id,
                         [](std::uint32_t value, const auto& block) { return value < block->firstId; });
    return static_cast<std::size_t>(behind - fBlocks.begin()) - 1;
}

FastArray::Place FastArray::PlaceOf(std::uint32_t id) const {
    FastArrayBlock* const block = fBlocks[BlockOf(id)].get();
    return {block, id - block->firstId};
}

std::string_view FastArray::KeyOf(std::uint32_t id) const {
    const Place place = PlaceOf(id);
    return place.block->keys.At(place.entry).Text();
}

std::optional<std::uint32_t> FastArray::FindInBucket(std::string_view key, std::uint32_t bucket) const {
    for (const std::uint32_t id : fBuckets[bucket]) {
        ++fScanned;
        if (id < fTotalIds && KeyOf(id) == key) return id;
    }
    return std::nullopt;
}

void FastArray::BuildIndexIfWorthwhile() const {
    if (fScanned < kFewestScanned || fScanned < fTotalIds) return;
    fScanned = 0;
    try {
        fIndex.Start(fTotalIds);
    } catch (const std::bad_alloc&) {
        return; // the buckets still answer
    }
    for (std::uint32_t bucket = 0; bucket < kBucketCount; ++bucket) {
        for (const std::uint32_t id : fBuckets[bucket]) {
            if (id >= fTotalIds) continue;
            // A file may list an id in a bucket where no search looks for its key.
            const std::string_view key = KeyOf(id);
            if (KeyBucket(key) == bucket) fIndex.Insert(key, id);
        }
    }
}

std::optional<std::uint32_t> FastArray::Find(std::string_view key) const {
    if (fIndex.IsBuilt()) return fIndex.Find(key);
    const auto found = FindInBucket(key, KeyBucket(key));
    BuildIndexIfWorthwhile();
    return found;
}

ValueBytes FastArray::Value(std::uint32_t id) const {
    if (id >= fTotalIds) return {};
    const Place place = PlaceOf(id);
    return place.block->IsDropped(place.entry) ? ValueBytes{} : place.block->values.At(place.entry);
}

std::optional<ValueBytes> FastArray::Note(std::uint32_t id) const {
    if (id >= fTotalIds) return std::nullopt;
    const Place place = PlaceOf(id);
    return place.block->NoteAt(place.entry);
}

void FastArray::ReplaceEntry(std::uint32_t id, std::string_view value, std::optional<std::string_view> note) {
    const Place place = PlaceOf(id);
    place.block->values.Replace(place.entry, value, place.block->entryCount);
    if (note) place.block->ReplaceNote(place.entry, *note);
}

FastArrayBlock& FastArray::CurrentBlock() {
    if (fCurrentBlock < 0) {
        if (fBlocks.size() == fBlocks.capacity()) fBlocks.reserve(fBlocks.size() + kBlocksAtATime);
        auto block = std::make_unique<FastArrayBlock>();
        block->firstId = fTotalIds;
        fBlocks.push_back(std::move(block));
        fCurrentBlock = static_cast<std::int32_t>(fBlocks.size() - 1);
    }
    return *fBlocks[static_cast<std::size_t>(fCurrentBlock)];
}

std::uint32_t FastArray::Add(std::string_view key, std::string_view value,
                             std::optional<std::string_view> note) {
    if (const auto found = Find(key)) {
        ReplaceEntry(*found, value, note);
        return *found;
    }
    const std::uint32_t id = fTotalIds;
    FastArrayBlock& block = CurrentBlock();
    std::vector<std::uint32_t>& bucket = fBuckets[KeyBucket(key)];
    if (bucket.size() == bucket.capacity()) bucket.reserve(bucket.size() * 2 + 1);
    block.Append(key, value, note);
    bucket.push_back(id);
    ++fTotalIds;
    ++fLiveEntries;
    if (block.entryCount == FastArrayBlock::kRunTimeEntries) fCurrentBlock = -1;
    InsertIntoIndex(id);
    return id;
}

void FastArray::InsertIntoIndex(std::uint32_t id) {
    if (!fIndex.IsBuilt()) return;
    try {
        fIndex.Insert(KeyOf(id), id);
    } catch (const std::bad_alloc&) {
        fIndex.Clear();
    }
}

// True when the entry's key was here already, and only its value was taken.
bool FastArray::MergeEntry(FastArrayBlock& block, std::uint32_t entry, std::uint32_t bucket) {
    const std::string_view key = block.keys.At(entry).Text();
    if (key.size() > kLongestMergedKey) return false;
    const auto old = KeyBucket(key) == bucket ? Find(key) : FindInBucket(key, bucket);
    if (!old) return false;
    ReplaceEntry(*old, block.values.At(entry).Text(), std::nullopt);
    block.keys.Clear(entry);
    block.values.Clear(entry);
    block.liveCount -= block.liveCount != 0;
    return true;
}

bool FastArray::AddBlock(FastArrayBlock block, const std::vector<BucketList>& lists) {
    const bool placed = block.firstId != 0;
    if (placed && fTotalIds != 0 && block.firstId != fTotalIds) return false;
    if (block.entryCount > kMostIds - fTotalIds) return false;
    if (block.liveCount == 0) return true;
    const bool overlay = !placed && fTotalIds != 0;
    block.firstId = fTotalIds;
    // Stored at the end, so that an entry is only compared with what was here before its file.
    std::vector<BucketList> added(lists);
    for (BucketList& list : added) {
        std::erase_if(list.ids,
                      [&](std::uint32_t id) { return overlay && MergeEntry(block, id, list.bucket); });
        for (std::uint32_t& id : list.ids) id += block.firstId;
        std::vector<std::uint32_t>& bucket = fBuckets[list.bucket];
        bucket.reserve(bucket.size() + list.ids.size());
    }
    fBlocks.push_back(std::make_unique<FastArrayBlock>(std::move(block)));
    for (const BucketList& list : added) {
        fBuckets[list.bucket].insert(fBuckets[list.bucket].end(), list.ids.begin(), list.ids.end());
    }
    fTotalIds += fBlocks.back()->entryCount;
    fLiveEntries += fBlocks.back()->liveCount;
    // What is added later must not shift these ids.
    fCurrentBlock = -1;
    fIndex.Clear();
    fScanned = 0;
    return true;
}

} // namespace kestrel_private
