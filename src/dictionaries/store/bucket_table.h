#pragma once

#include "dictionaries/store/file_array.h"
#include "dictionaries/store/key_text.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <vector>

namespace kestrel_private {

// The ids of all buckets of a file, numbered from 0 as in the file: one array, and the run of it that each
// list is. Nothing is promised about the ids.
struct BucketLists {
    struct List {
        std::uint32_t bucket = 0; // below kBucketCount
        std::uint32_t begin = 0;
        std::uint32_t count = 0; // the run lies inside `ids`
    };

    FileArray<std::uint32_t> ids;
    std::vector<List> lists;
};

// The ids in each bucket of the store, in the order of a search: the list of the first file, as that file
// brought it, and behind it what came later. The file's ids are not looked at when they come, so only those
// below FileLimit() count. Buckets are numbers below kBucketCount.
class BucketTable {
public:
    using Ids = std::vector<std::uint32_t>;

    // Takes the lists of a first file of `entryCount` entries in place of any that were there. When memory
    // runs out, all is as before.
    void TakeFile(BucketLists lists, std::uint32_t entryCount);
    std::span<const std::uint32_t> FromFile(std::uint32_t bucket) const {
        if (!fileLists) return {};
        return std::span(fileIds).subspan(fileLists[bucket].begin, fileLists[bucket].count);
    }
    std::uint32_t FileLimit() const { return fileLimit; }

    std::span<const std::uint32_t> Added(std::uint32_t bucket) const {
        if (!added) return {};
        return added[bucket];
    }
    // Room for one more.
    void Reserve(std::uint32_t bucket);
    void Append(std::uint32_t bucket, std::uint32_t id);
    // Gives the bucket a longer list of what came later.
    void ReplaceAdded(std::uint32_t bucket, Ids& ids) noexcept;

    template <class Visit>
    void ForEachId(std::uint32_t bucket, Visit visit) const {
        for (const std::uint32_t id : FromFile(bucket)) {
            if (id < fileLimit) visit(id);
        }
        for (const std::uint32_t id : Added(bucket)) visit(id);
    }
    // At least as many as there are, in a bucket and in all.
    std::size_t Size(std::uint32_t bucket) const { return FromFile(bucket).size() + Added(bucket).size(); }
    std::size_t Size() const { return fileIds.size() + addedCount; }

private:
    struct FileList {
        std::uint32_t begin = 0;
        std::uint32_t count = 0;
    };

    static std::unique_ptr<Ids[]> NewLists() { return std::make_unique<Ids[]>(kBucketCount); }

    FileArray<std::uint32_t> fileIds;
    std::unique_ptr<FileList[]> fileLists; // as all lists here, made when they are needed
    std::uint32_t fileLimit = 0;
    std::unique_ptr<Ids[]> added;
    std::size_t addedCount = 0;
};

} // namespace kestrel_private
