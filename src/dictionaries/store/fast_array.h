#pragma once

#include "dictionaries/store/bucket_table.h"
#include "dictionaries/store/fast_array_block.h"
#include "dictionaries/store/key_index.h"
#include "dictionaries/store/key_text.h"
#include "dictionaries/zstring/ref_count_obj.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string_view>
#include <vector>

namespace kestrel_private {

// The store of record. Entries have ids: positions across all blocks, which are laid end to end. A key is
// found by going through the ids of its bucket in order, or through an index that gives the same answers and
// is made once the scanning has cost as much as making it. Searches write scratch fields: one thread at a
// time.
class FastArray : public RefCountObj {
public:
    static constexpr std::uint32_t kMostIds = 0xFFFFFFFF;
    static constexpr std::uint32_t kNoId = 0xFFFFFFFF;

    // The first id of `key` in its bucket.
    std::optional<std::uint32_t> Find(std::string_view key) const;
    // The value of that id.
    std::optional<ValueBytes> FindValue(std::string_view key) const;
    // The value's bytes; empty for an id that was never given out or was dropped.
    ValueBytes Value(std::uint32_t id) const;
    std::optional<ValueBytes> Note(std::uint32_t id) const;

    // Adds an entry or replaces its value (and its note, if one is given). At most kLongestText bytes each.
    // When memory runs out nothing was added; a value that was being replaced may be the new one already,
    // beside its old note. kNoId when there is no id left.
    std::uint32_t Add(std::string_view key, std::string_view value, std::optional<std::string_view> note);

    // Lays a whole block behind the others, with its file's bucket lists. `block.firstId` is what the file
    // says: a block made to stand at another place than here is refused (false), and so is one that would
    // take the ids past kMostIds; 0 stands anywhere, and then the values of keys that are here already
    // replace the older ones. A block without live entries is dropped. The first block is taken as it is: no
    // key of it is hashed or compared, and no id looked at. When memory runs out, or the block is refused,
    // all is as before.
    bool AddBlock(FastArrayBlock block, BucketLists lists);

    // The key's bytes; empty for an id that was never given out or was dropped.
    std::string_view Key(std::uint32_t id) const { return id < totalIds ? KeyOf(id) : std::string_view(); }
    // Every id ever given out, and those not dropped.
    std::uint32_t TotalIds() const { return totalIds; }
    std::uint32_t LiveEntries() const { return liveEntries; }
    std::size_t BlockCount() const { return blocks.size(); }
    // The ids of a bucket, in the order of a search.
    std::vector<std::uint32_t> Bucket(std::uint32_t bucket) const;
    bool IsIndexed() const { return index.IsBuilt(); }

private:
    struct Place {
        FastArrayBlock* block;
        std::uint32_t entry;
    };

    Place PlaceOf(std::uint32_t id) const;
    std::size_t BlockOf(std::uint32_t id) const;
    std::string_view KeyOf(std::uint32_t id) const;
    void BuildIndexIfWorthwhile() const;
    bool TakesIntoIndex(std::string_view key, std::uint64_t& left) const;
    bool IsAnsweredByIndex(std::string_view key) const;
    void ReplaceEntry(std::uint32_t id, std::string_view value, std::optional<std::string_view> note);
    void ReserveBlock();
    FastArrayBlock& CurrentBlock();
    void InsertIntoIndex(std::uint32_t id);
    void UpdateIndex(std::uint32_t id) noexcept { index.SetValue(KeyOf(id), {id, Value(id)}); }
    std::optional<std::uint32_t> FindFromFile(std::string_view key, std::uint32_t bucket) const;
    std::optional<std::uint32_t> FindInBucket(std::string_view key, std::uint32_t bucket) const;

    class BlockBehind;
    void AddFirstBlock(FastArrayBlock block, BucketLists lists);
    bool AddBlockBehind(FastArrayBlock block, const BucketLists& lists);
    void TakeBlock(std::unique_ptr<FastArrayBlock> block) noexcept;

    std::uint32_t totalIds = 0;
    std::uint32_t liveEntries = 0;
    std::uint64_t keyBytes = 0; // of all blocks
    std::int32_t currentBlock = -1;
    BucketTable buckets;
    std::vector<std::unique_ptr<FastArrayBlock>> blocks;
    mutable KeyIndex index;
    mutable bool indexIsWhole = true;  // else long keys are looked for in their buckets
    mutable std::uint64_t scanned = 0; // keys compared since the last index
};

} // namespace kestrel_private
