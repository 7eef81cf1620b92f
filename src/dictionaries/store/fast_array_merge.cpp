// Blocks that come after others: the values that they replace, and the ids that they add to the buckets.
#include "dictionaries/store/fast_array.h"

#include <algorithm>
#include <map>
#include <unordered_map>
#include <utility>

namespace kestrel_private {
namespace {

constexpr std::size_t kLongestMergedKey = 1023; // bytes; longer keys are taken as new

// In smaller buckets comparing every key is cheaper than an index.
constexpr std::size_t kFewestIndexed = 16;

// Values of a file may share bytes, but each value that replaces a shorter one gets a copy. The copies may
// come to this many times the bytes of the file, or to the second number for a small file.
constexpr std::uint64_t kMostUnfoldedTimes = 64;
constexpr std::uint64_t kUnfoldedAnyway = 1 << 20;

} // namespace

// Prepares all that a further block changes, so that carrying it out cannot fail.
class FastArray::Merge {
public:
    Merge(FastArray& target, FastArrayBlock added)
        : store(target), block(std::make_unique<FastArrayBlock>(std::move(added))),
          isOverlay(block->firstId == 0),
          mostUnfolded(std::max(kMostUnfoldedTimes * block->fileSize, kUnfoldedAnyway)) {
        block->firstId = store.totalIds;
        store.ReserveBlock();
    }

    // True when the copies pass their limit. The block is then refused, and nothing more need be placed.
    bool UnfoldsTooFar() const { return unfolded > mostUnfolded; }

    // Prepares an entry of the block that the file lists in the bucket.
    void Place(std::uint32_t bucket, std::uint32_t entry) {
        if (entry >= block->entryCount) return;
        if (isOverlay && Replaces(entry, bucket)) return;
        Grown(bucket).push_back(entry + block->firstId);
    }

    void CarryOut() noexcept {
        for (Replacement& replacement : replacements) {
            const auto place = store.PlaceOf(replacement.id);
            place.block->values.Replace(place.entry, replacement.value, std::move(replacement.prepared));
            store.UpdateIndex(replacement.id);
        }
        if (block->liveCount == 0) return;
        for (auto& [bucket, ids] : grown) store.buckets.ReplaceAdded(bucket, ids);
        store.TakeBlock(std::move(block));
    }

private:
    struct Replacement {
        std::uint32_t id;
        std::string_view value; // in the block's area
        TextColumn::Bytes prepared;
    };

    // The ids of a bucket that came later than the first file, with those of this block.
    BucketTable::Ids& Grown(std::uint32_t bucket) {
        const auto [place, isNew] = grown.try_emplace(bucket);
        if (isNew) {
            store.buckets.Reserve(bucket);
            const auto added = store.buckets.Added(bucket);
            place->second.assign(added.begin(), added.end());
        }
        return place->second;
    }

    // True when the key was in the store before this block: only the value of the entry is taken.
    bool Replaces(std::uint32_t entry, std::uint32_t bucket) {
        const std::string_view key = block->keys.At(entry).Text();
        if (key.size() > kLongestMergedKey) return false;
        const auto old = FindOld(key, bucket);
        if (!old) return false;
        const std::string_view value = block->values.At(entry).Text();
        replacements.push_back({*old, value, PrepareReplacement(*old, value)});
        block->keys.Clear(entry);
        block->values.Clear(entry);
        block->liveCount -= block->liveCount != 0;
        return true;
    }

    TextColumn::Bytes PrepareReplacement(std::uint32_t id, std::string_view value) {
        const auto [oldBlock, oldEntry] = store.PlaceOf(id);
        // A file may have a key more than once.
        std::size_t& length = lengths.try_emplace(id, oldBlock->values.At(oldEntry).length).first->second;
        const bool isLonger = value.size() > length;
        length = value.size();
        if (!isLonger || UnfoldsTooFar()) return nullptr;
        unfolded += value.size();
        return oldBlock->values.PrepareOverride(value, oldBlock->entryCount);
    }

    std::optional<std::uint32_t> FindOld(std::string_view key, std::uint32_t bucket) {
        const std::size_t size = store.buckets.Size(bucket);
        if (size < kFewestIndexed) return store.FindInBucket(key, bucket);
        KeyIndex& oldIndex = oldKeys[bucket];
        if (!oldIndex.IsBuilt()) {
            oldIndex.Start(size);
            store.buckets.ForEachId(bucket, [&](std::uint32_t id) {
                const std::string_view old = store.KeyOf(id);
                if (old.size() <= kLongestMergedKey) oldIndex.Insert(old, {id, {}});
            });
        }
        const auto entry = oldIndex.Find(key);
        return entry ? std::optional(entry->id) : std::nullopt;
    }

    FastArray& store;
    std::unique_ptr<FastArrayBlock> block;
    bool isOverlay;
    std::uint64_t mostUnfolded;
    std::uint64_t unfolded = 0;
    std::map<std::uint32_t, BucketTable::Ids> grown;
    std::map<std::uint32_t, KeyIndex> oldKeys; // of the larger buckets that were searched
    std::vector<Replacement> replacements;
    std::unordered_map<std::uint32_t, std::size_t> lengths; // of the old values, as replaced so far
};

void FastArray::AddFurtherBlock(FastArrayBlock block, const BucketLists& lists) {
    Merge merge(*this, std::move(block));
    lists.ForEachList([&](std::uint32_t bucket, std::uint32_t begin, std::uint32_t count) {
        for (std::size_t i = begin; i < std::size_t{begin} + count && !merge.UnfoldsTooFar(); ++i) {
            merge.Place(bucket, lists.ids[i]);
        }
    });
    if (!merge.UnfoldsTooFar()) merge.CarryOut();
}

} // namespace kestrel_private
