#include "dictionaries/fast_array.h"

#include <new>
#include <utility>

namespace kestrel_private {
namespace {

constexpr std::size_t kBlocksAtATime = 10;
constexpr std::uint32_t kIdsAHint = 128;

// One key costs about as much to put into the index as to compare in a bucket; below this no index pays.
constexpr std::uint64_t kFewestScanned = 256;

} // namespace

FastArray::Place FastArray::PlaceOf(std::uint32_t id) const {
    std::size_t block = fBlockHints[id / kIdsAHint];
    while (id - fBlocks[block]->firstId >= fBlocks[block]->entryCount) ++block;
    return {fBlocks[block].get(), id - fBlocks[block]->firstId};
}

std::string_view FastArray::KeyOf(std::uint32_t id) const {
    const Place place = PlaceOf(id);
    return place.block->keys.At(place.entry).Text();
}

std::optional<std::uint32_t> FastArray::ScanBucket(std::string_view key) const {
    for (const std::uint32_t id : fBuckets[KeyBucket(key)]) {
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
    const auto found = ScanBucket(key);
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
    if (id % kIdsAHint == 0) fBlockHints.reserve(fBlockHints.size() + 1);
    block.Append(key, value, note);
    if (id % kIdsAHint == 0) fBlockHints.push_back(static_cast<std::uint32_t>(fCurrentBlock));
    bucket.push_back(id);
    ++fTotalIds;
    ++fLiveEntries;
    if (block.entryCount == FastArrayBlock::kRunTimeEntries) fCurrentBlock = -1;
    if (fIndex.IsBuilt()) {
        try {
            fIndex.Insert(KeyOf(id), id);
        } catch (const std::bad_alloc&) {
            fIndex.Clear();
        }
    }
    return id;
}

} // namespace kestrel_private
