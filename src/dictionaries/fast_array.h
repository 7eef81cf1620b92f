#pragma once

#include "dictionaries/fast_array_block.h"
#include "dictionaries/key_index.h"
#include "dictionaries/key_text.h"
#include "dictionaries/ref_count_obj.h"

#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <string_view>
#include <vector>

namespace kestrel_private {

// The ids of one bucket, numbered as in their file.
struct BucketList {
    std::uint32_t bucket; // below kBucketCount
    std::vector<std::uint32_t> ids;
};

// The store of record. Entries have ids: positions across all blocks, which are laid end to end. A key is
// found by going through the ids of its bucket in order, or through an index that gives the same answers and
// is made once the scanning has cost as much as making it. Searches write scratch fields: one thread at a
// time.
class FastArray : public RefCountObj {
public:
    // The first id of `key` in its bucket.
    std::optional<std::uint32_t> Find(std::string_view key) const;
    // The value's bytes; empty for an id that was never given out or was dropped.
    ValueBytes Value(std::uint32_t id) const;
    std::optional<ValueBytes> Note(std::uint32_t id) const;

    // Adds an entry or replaces its value (and its note, if one is given). At most kLongestText bytes each.
    // When memory runs out nothing was added; a value that was being replaced may be the new one already,
    // beside its old note.
    std::uint32_t Add(std::string_view key, std::string_view value, std::optional<std::string_view> note);

    // Lays a whole block behind the others, with its file's bucket lists. `block.firstId` is what the file
    // says: a block made to stand at another place than here is refused (false); 0 stands anywhere, and then
    // the values of keys that are here already replace the older ones. A block without live entries is
    // dropped. No key is hashed or compared for the first block.
    bool AddBlock(FastArrayBlock block, const std::vector<BucketList>& lists);

    // Every id ever given out, and those not dropped.
    std::uint32_t TotalIds() const { return fTotalIds; }
    std::uint32_t LiveEntries() const { return fLiveEntries; }
    std::size_t BlockCount() const { return fBlocks.size(); }
    const std::vector<std::uint32_t>& Bucket(std::uint32_t bucket) const { return fBuckets[bucket]; }
    bool IsIndexed() const { return fIndex.IsBuilt(); }

private:
    struct Place {
        FastArrayBlock* block;
        std::uint32_t entry;
    };

    Place PlaceOf(std::uint32_t id) const;
    std::size_t BlockOf(std::uint32_t id) const;
    std::string_view KeyOf(std::uint32_t id) const;
    void BuildIndexIfWorthwhile() const;
    void ReplaceEntry(std::uint32_t id, std::string_view value, std::optional<std::string_view> note);
    FastArrayBlock& CurrentBlock();
    void InsertIntoIndex(std::uint32_t id);
    bool MergeEntry(FastArrayBlock& block, std::uint32_t entry, std::uint32_t bucket);
    std::optional<std::uint32_t> FindInBucket(std::string_view key, std::uint32_t bucket) const;

    std::uint32_t fTotalIds = 0;
    std::uint32_t fLiveEntries = 0;
    std::int32_t fCurrentBlock = -1;
    std::array<std::vector<std::uint32_t>, kBucketCount> fBuckets;
    std::vector<std::unique_ptr<FastArrayBlock>> fBlocks;
    mutable KeyIndex fIndex;
    mutable std::uint64_t fScanned = 0; // keys compared since the last index
};

} // namespace kestrel_private
