// The ids in each bucket of the store.
#pragma once

#include "dictionaries/store/file_numbers.h"
#include "dictionaries/store/key_text.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <vector>

namespace kestrel_private {

// The bucket lists of a file, borrowed from its block. The lists follow one another in `ids`. Nothing is
// promised about the numbers.
struct BucketLists {
    FileNumbers<std::uint16_t> buckets; // one for each list
    FileNumbers<std::uint32_t> sizes;   // one for each list
    FileNumbers<std::uint32_t> ids;     // of entries, numbered from 0

    // Calls `visit(bucket, begin, count)` for the lists in their order: `count` ids from `begin` on. Leaves
    // out buckets that do not exist, and ends at a list that is not whole.
    template <class Visit>
    void ForEachList(Visit visit) const {
        std::size_t begin = 0;
        for (std::size_t list = 0; list < sizes.Size(); ++list) {
            const std::uint32_t count = sizes[list];
            if (count > ids.Size() - begin) return;
            if (buckets[list] < kBucketCount) visit(buckets[list], static_cast<std::uint32_t>(begin), count);
            begin += count;
        }
    }
};

// The ids of a bucket are in the order of a search: first those of the first file, then those that came
// later. The ids of the first file are not checked when they come; only those below FileLimit() count.
// Buckets are numbers below kBucketCount.
class BucketTable {
public:
    using Ids = std::vector<std::uint32_t>;

    // Takes the lists of the first file, which has `entryCount` entries, in place of any other lists. Borrows
    // the numbers. On bad_alloc the table is as before.
    void TakeFile(const BucketLists& lists, std::uint32_t entryCount);
    FileNumbers<std::uint32_t> FromFile(std::uint32_t bucket) const {
        if (!fileLists) return {};
        return fileIds.Part(fileLists[bucket].begin, fileLists[bucket].count);
    }
    std::uint32_t FileLimit() const { return fileLimit; }

    std::span<const std::uint32_t> Added(std::uint32_t bucket) const {
        if (!added) return {};
        return added[bucket];
    }
    // Takes memory for one more id, so that Append and ReplaceAdded cannot fail.
    void Reserve(std::uint32_t bucket);
    void Append(std::uint32_t bucket, std::uint32_t id);
    // Replaces the ids that came later by `ids`, a longer list that begins with them. Reserve has been
    // called.
    void ReplaceAdded(std::uint32_t bucket, Ids& ids) noexcept;

    template <class Visit>
    void ForEachId(std::uint32_t bucket, Visit visit) const {
        const FileNumbers<std::uint32_t> fromFile = FromFile(bucket);
        for (std::size_t i = 0; i < fromFile.Size(); ++i) {
            if (fromFile[i] < fileLimit) visit(fromFile[i]);
        }
        for (const std::uint32_t id : Added(bucket)) visit(id);
    }
    // The number of ids in a bucket and in all, or a little more: ids of the file that do not count are in
    // it.
    std::size_t Size(std::uint32_t bucket) const { return FromFile(bucket).Size() + Added(bucket).size(); }
    std::size_t Size() const { return fileIds.Size() + addedCount; }

private:
    struct FileList {
        std::uint32_t begin = 0;
        std::uint32_t count = 0;
    };

    static std::unique_ptr<Ids[]> NewLists() { return std::make_unique<Ids[]>(kBucketCount); }

    FileNumbers<std::uint32_t> fileIds;
    std::unique_ptr<FileList[]> fileLists; // null before the first file
    std::uint32_t fileLimit = 0;
    std::unique_ptr<Ids[]> added; // null before the first id
    std::size_t addedCount = 0;
};

} // namespace kestrel_private
