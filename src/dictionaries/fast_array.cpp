#include "dictionaries/fast_array.h"

#include <algorithm>
#include <new>
#include <utility>

namespace kestrel_private {
namespace {

constexpr std::size_t kBlocksAtATime = 10;

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

std::vector<std::uint32_t> FastArray::Bucket(std::uint32_t bucket) const {
    std::vector<std::uint32_t> ids;
    ForEachId(bucket, [&](std::uint32_t id) {
        ids.push_back(id);
        return false;
    });
    return ids;
}

std::optional<std::uint32_t> FastArray::FindInBucket(std::string_view key, std::uint32_t bucket) const {
    std::optional<std::uint32_t> found;
    ForEachId(bucket, [&](std::uint32_t id) {
        ++fScanned;
        const Place place = PlaceOf(id);
        if (place.block->keys.Equals(place.entry, key)) found = id;
        return found.has_value();
    });
    return found;
}

void FastArray::BuildIndexIfWorthwhile() const {
    if (fScanned < kFewestScanned || fScanned < fListedIds) return;
    fScanned = 0;
    try {
        fIndex.Start(std::min<std::uint64_t>(fListedIds, fTotalIds));
    } catch (const std::bad_alloc&) {
        return; // the buckets still answer
    }
    for (std::uint32_t bucket = 0; bucket < kBucketCount; ++bucket) {
        ForEachId(bucket, [&](std::uint32_t id) {
            // A file may list an id in a bucket where no search looks for its key.
            const std::string_view key = KeyOf(id);
            if (KeyBucket(key) == bucket) fIndex.Insert(key, id);
            return false;
        });
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

void FastArray::ReserveBlock() {
    if (fBlocks.size() == fBlocks.capacity()) fBlocks.reserve(fBlocks.size() + kBlocksAtATime);
}

FastArrayBlock& FastArray::CurrentBlock() {
    if (fCurrentBlock < 0) {
        ReserveBlock();
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
    if (id == kMostIds) return kNoId;
    FastArrayBlock& block = CurrentBlock();
    std::vector<std::uint32_t>& bucket = fBuckets[KeyBucket(key)];
    if (bucket.size() == bucket.capacity()) bucket.reserve(bucket.size() * 2 + 1);
    block.Append(key, value, note);
    bucket.push_back(id);
    ++fListedIds;
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

bool FastArray::AddBlock(FastArrayBlock block, BucketLists lists) {
    if (block.firstId != 0 && fTotalIds != 0 && block.firstId != fTotalIds) return false;
    if (block.entryCount > kMostIds - fTotalIds) return false;
    if (fTotalIds != 0) return AddBlockBehind(std::move(block), lists);
    if (block.liveCount != 0) AddFirstBlock(std::move(block), std::move(lists));
    return true;
}

void FastArray::AddFirstBlock(FastArrayBlock block, BucketLists lists) {
    ReserveBlock();
    auto taken = std::make_unique<FastArrayBlock>(std::move(block));
    taken->firstId = 0;
    std::array<FileList, kBucketCount> fileLists = {};
    std::vector<BucketLists::List> repeated;
    for (const BucketLists::List& list : lists.lists) {
        FileList& first = fileLists[list.bucket];
        if (first.count == 0) {
            first = {list.begin, list.count};
        } else {
            repeated.push_back(list);
        }
    }
    AppendRepeatedLists(repeated, lists.ids, taken->entryCount);
    fFileLists = fileLists;
    fFileIds = std::move(lists.ids);
    fFileBlock = taken.get();
    fListedIds = fFileIds.size();
    TakeBlock(std::move(taken));
}

// A file that has several lists for one bucket: what follows the first goes behind it as if it came later.
void FastArray::AppendRepeatedLists(const std::vector<BucketLists::List>& repeated,
                                    const FileArray<std::uint32_t>& ids, std::uint32_t entryCount) {
    try {
        for (const BucketLists::List& list : repeated) {
            for (std::uint32_t i = 0; i < list.count; ++i) {
                const std::uint32_t id = ids[list.begin + i];
                if (id < entryCount) fBuckets[list.bucket].push_back(id);
            }
        }
    } catch (const std::bad_alloc&) {
        for (auto& bucket : fBuckets) bucket.clear();
        throw;
    }
}

void FastArray::TakeBlock(std::unique_ptr<FastArrayBlock> block) noexcept {
    fTotalIds += block->entryCount;
    fLiveEntries += std::min(block->liveCount, UINT32_MAX - fLiveEntries);
    fBlocks.push_back(std::move(block));
    // What is added later must not shift these ids.
    fCurrentBlock = -1;
    fIndex.Clear();
    fScanned = 0;
}

} // namespace kestrel_private
