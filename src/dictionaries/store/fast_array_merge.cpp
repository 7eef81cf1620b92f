// Blocks that come behind others: what they replace, and what their buckets add.
#include "dictionaries/store/fast_array.h"

#include <map>
#include <span>
#include <unordered_map>
#include <utility>

namespace kestrel_private {
namespace {

constexpr std::size_t kLongestMergedKey = 1023; // bytes; longer ones are taken as new

// Up to here going through a bucket is cheaper than an index of it.
constexpr std::size_t kFewestIndexed = 16;

// What the replaced values may take at most beyond the file's own bytes: values of a file may share theirs,
// but each replaced one gets a copy.
constexpr std::uint64_t kUnfoldedBytesAnEntry = 256;

} // namespace

// All that a block behind others will change, made ready so that carrying it out cannot fail.
class FastArray::BlockBehind {
public:
    BlockBehind(FastArray& store, FastArrayBlock block)
        : fStore(store), fBlock(std::make_unique<FastArrayBlock>(std::move(block))),
          fMostUnfolded(fBlock->values.AreaSize() + kUnfoldedBytesAnEntry * fBlock->entryCount) {
        fIsOverlay = fBlock->firstId == 0;
        fBlock->firstId = store.fTotalIds;
        store.ReserveBlock();
    }

    // False when the block is to be refused.
    bool Place(std::uint32_t bucket, std::span<const std::uint32_t> ids) {
        BucketTable::Ids& grown = Grown(bucket);
        for (const std::uint32_t id : ids) {
            if (id >= fBlock->entryCount) continue;
            if (fIsOverlay && Merge(id, bucket)) continue;
            grown.push_back(id + fBlock->firstId);
        }
        return fUnfolded <= fMostUnfolded;
    }

    void CarryOut() noexcept {
        for (Replacement& replacement : fReplacements) {
            const auto place = fStore.PlaceOf(replacement.id);
            place.block->values.Replace(place.entry, replacement.value, std::move(replacement.prepared));
            fStore.UpdateIndex(replacement.id);
        }
        if (fBlock->liveCount == 0) return;
        for (auto& [bucket, ids] : fGrown) fStore.fBuckets.ReplaceAdded(bucket, ids);
        fStore.TakeBlock(std::move(fBlock));
    }

private:
    struct Replacement {
        std::uint32_t id;
        std::string_view value; // in the block's area
        std::unique_ptr<std::uint8_t[]> prepared;
    };

    // What came later than the first file, as it will be.
    BucketTable::Ids& Grown(std::uint32_t bucket) {
        const auto [place, isNew] = fGrown.try_emplace(bucket);
        if (isNew) {
            fStore.fBuckets.Reserve(bucket);
            const auto added = fStore.fBuckets.Added(bucket);
            place->second.assign(added.begin(), added.end());
        }
        return place->second;
    }

    // True when the entry's key was here already, and only its value is taken.
    bool Merge(std::uint32_t entry, std::uint32_t bucket) {
        const std::string_view key = fBlock->keys.At(entry).Text();
        if (key.size() > kLongestMergedKey) return false;
        const auto old = FindOld(key, bucket);
        if (!old) return false;
        const std::string_view value = fBlock->values.At(entry).Text();
        fReplacements.push_back({*old, value, PrepareReplacement(*old, value)});
        fBlock->keys.Clear(entry);
        fBlock->values.Clear(entry);
        fBlock->liveCount -= fBlock->liveCount != 0;
        return true;
    }

    std::unique_ptr<std::uint8_t[]> PrepareReplacement(std::uint32_t id, std::string_view value) {
        const auto [block, entry] = fStore.PlaceOf(id);
        // A file may have a key more than once.
        std::size_t& length = fLengths.try_emplace(id, block->values.At(entry).length).first->second;
        const bool isLonger = value.size() > length;
        length = value.size();
        if (!isLonger || fUnfolded > fMostUnfolded) return nullptr;
        fUnfolded += value.size();
        return block->values.PrepareOverride(value, block->entryCount);
    }

    std::optional<std::uint32_t> FindOld(std::string_view key, std::uint32_t bucket) {
        const std::size_t size = fStore.fBuckets.Size(bucket);
        if (size < kFewestIndexed) return fStore.FindInBucket(key, bucket);
        KeyIndex& index = fOldKeys[bucket];
        if (!index.IsBuilt()) {
            index.Start(size);
            fStore.fBuckets.ForEachId(bucket, [&](std::uint32_t id) {
                const std::string_view old = fStore.KeyOf(id);
                if (old.size() <= kLongestMergedKey) index.Insert(old, {id, {}});
            });
        }
        const auto entry = index.Find(key);
        return entry ? std::optional(entry->id) : std::nullopt;
    }

    FastArray& fStore;
    std::unique_ptr<FastArrayBlock> fBlock;
    bool fIsOverlay = false;
    std::uint64_t fMostUnfolded;
    std::uint64_t fUnfolded = 0;
    std::map<std::uint32_t, BucketTable::Ids> fGrown;
    std::map<std::uint32_t, KeyIndex> fOldKeys; // of the larger buckets that were searched
    std::vector<Replacement> fReplacements;
    std::unordered_map<std::uint32_t, std::size_t> fLengths; // of the old values, as replaced so far
};

bool FastArray::AddBlockBehind(FastArrayBlock block, const BucketLists& lists) {
    BlockBehind behind(*this, std::move(block));
    for (const BucketLists::List& list : lists.lists) {
        if (!behind.Place(list.bucket, std::span(lists.ids).subspan(list.begin, list.count))) return false;
    }
    behind.CarryOut();
    return true;
}

} // namespace kestrel_private
