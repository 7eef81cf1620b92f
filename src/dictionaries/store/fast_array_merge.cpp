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
    BlockBehind(FastArray& target, FastArrayBlock file)
        : store(target), block(std::make_unique<FastArrayBlock>(std::move(file))),
          mostUnfolded(block->values.AreaSize() + kUnfoldedBytesAnEntry * block->entryCount) {
        isOverlay = block->firstId == 0;
        block->firstId = store.totalIds;
        store.ReserveBlock();
    }

    // False when the block is to be refused.
    bool Place(std::uint32_t bucket, std::span<const std::uint32_t> ids) {
        BucketTable::Ids& list = Grown(bucket);
        for (const std::uint32_t id : ids) {
            if (id >= block->entryCount) continue;
            if (isOverlay && Merge(id, bucket)) continue;
            list.push_back(id + block->firstId);
        }
        return unfolded <= mostUnfolded;
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
        std::unique_ptr<std::uint8_t[]> prepared;
    };

    // What came later than the first file, as it will be.
    BucketTable::Ids& Grown(std::uint32_t bucket) {
        const auto [place, isNew] = grown.try_emplace(bucket);
        if (isNew) {
            store.buckets.Reserve(bucket);
            const auto added = store.buckets.Added(bucket);
            place->second.assign(added.begin(), added.end());
        }
        return place->second;
    }

    // True when the entry's key was here already, and only its value is taken.
    bool Merge(std::uint32_t entry, std::uint32_t bucket) {
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

    std::unique_ptr<std::uint8_t[]> PrepareReplacement(std::uint32_t id, std::string_view value) {
        const auto [oldBlock, entry] = store.PlaceOf(id);
        // A file may have a key more than once.
        std::size_t& length = lengths.try_emplace(id, oldBlock->values.At(entry).length).first->second;
        const bool isLonger = value.size() > length;
        length = value.size();
        if (!isLonger || unfolded > mostUnfolded) return nullptr;
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
    bool isOverlay = false;
    std::uint64_t mostUnfolded;
    std::uint64_t unfolded = 0;
    std::map<std::uint32_t, BucketTable::Ids> grown;
    std::map<std::uint32_t, KeyIndex> oldKeys; // of the larger buckets that were searched
    std::vector<Replacement> replacements;
    std::unordered_map<std::uint32_t, std::size_t> lengths; // of the old values, as replaced so far
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
