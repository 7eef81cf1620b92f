// The store of record: every entry of a fast dictionary.
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

// Entries have ids: their positions across all blocks, which are laid end to end. A search compares the keys
// of one bucket in their order. Once searches have compared as many keys as it costs to make an index, the
// store makes one, which gives the same answers. Searches write scratch fields: one thread at a time.
class FastArray : public RefCountObj {
public:
    static constexpr std::uint32_t kMostIds = 0xFFFFFFFF;
    static constexpr std::uint32_t kNoId = 0xFFFFFFFF;

    // The first id of `key` in its bucket; nothing when no entry has the key.
    [[nodiscard]] std::optional<std::uint32_t> Find(std::string_view key) const;
    // The value of that id.
    [[nodiscard]] std::optional<ValueBytes> FindValue(std::string_view key) const;
    // The value of an id, until the store next changes; empty for an id that was never given out or was
    // dropped.
    ValueBytes Value(std::uint32_t id) const;
    // The note of an id; nothing when it has none.
    std::optional<ValueBytes> Note(std::uint32_t id) const;

    // Adds an entry, or replaces the value of the key, and its note when one is given. Texts have at most
    // kLongestText bytes. Returns the id, or kNoId when no id is left. Throws bad_alloc: then nothing was
    // added, but a value that was replaced may be the new one beside its old note.
    std::uint32_t Add(std::string_view key, std::string_view value, std::optional<std::string_view> note);

    // Puts the block of a file after the others. `block.firstId` is what the file says: with 0 the block may
    // follow any other, and the values of keys that are here already replace the older ones. With another
    // number it follows exactly as many ids, and its keys are not compared. The first block is taken as it
    // is: no key is hashed or compared, and no id is checked.
    //
    // Changes nothing when the block is refused: one that was made for another place, one that would take the
    // ids past kMostIds, and one whose values would unfold too far (see fast_array_merge.cpp). A block
    // without live entries is dropped after its values have replaced older ones. Throws bad_alloc, and then
    // all is as before.
    void AddBlock(FastArrayBlock block, const BucketLists& lists);

    // The key of an id; empty for an id that was never given out or was dropped.
    std::string_view Key(std::uint32_t id) const { return id < totalIds ? KeyOf(id) : std::string_view(); }
    // The number of ids ever given out.
    std::uint32_t TotalIds() const { return totalIds; }
    // The number of ids that are not dropped, as the files say; stays at its largest value.
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
    class Merge;

    Place PlaceOf(std::uint32_t id) const;
    std::size_t BlockOf(std::uint32_t id) const;
    std::string_view KeyOf(std::uint32_t id) const;

    std::optional<std::uint32_t> FindFromFile(std::string_view key, std::uint32_t bucket) const;
    std::optional<std::uint32_t> FindInBucket(std::string_view key, std::uint32_t bucket) const;
    void BuildIndexIfWorthwhile() const;
    bool TakesIntoIndex(std::string_view key, std::uint64_t& left) const;
    bool IsAnsweredByIndex(std::string_view key) const;
    void InsertIntoIndex(std::uint32_t id);
    void UpdateIndex(std::uint32_t id) noexcept { index.SetValue(KeyOf(id), {id, Value(id)}); }

    void ReplaceEntry(std::uint32_t id, std::string_view value, std::optional<std::string_view> note);
    void ReserveBlock();
    FastArrayBlock& CurrentBlock();
    void AddFirstBlock(FastArrayBlock block, const BucketLists& lists);
    void AddFurtherBlock(FastArrayBlock block, const BucketLists& lists);
    void TakeBlock(std::unique_ptr<FastArrayBlock> block) noexcept;
    void CountLive(std::uint32_t more) noexcept;

    std::uint32_t totalIds = 0;
    std::uint32_t liveEntries = 0;
    std::uint64_t keyBytes = 0;     // of all blocks
    std::int32_t currentBlock = -1; // the block that takes new entries; -1 for none
    BucketTable buckets;
    std::vector<std::unique_ptr<FastArrayBlock>> blocks;
    mutable KeyIndex index;
    mutable bool indexIsWhole = true;  // without it, long keys are looked for in their buckets
    mutable std::uint64_t scanned = 0; // keys compared since the last index
};

} // namespace kestrel_private
