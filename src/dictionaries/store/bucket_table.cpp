#include "dictionaries/store/bucket_table.h"

#include <utility>

namespace kestrel_private {

void BucketTable::TakeFile(BucketLists lists, std::uint32_t entryCount) {
    auto fileLists = std::make_unique<FileList[]>(kBucketCount);
    std::unique_ptr<Ids[]> repeated;
    std::size_t repeatedCount = 0;
    for (const BucketLists::List& list : lists.lists) {
        FileList& first = fileLists[list.bucket];
        if (first.count == 0) {
            first = {list.begin, list.count};
            continue;
        }
        // What follows the first list of a bucket goes behind it as if it came later.
        if (!repeated) repeated = NewLists();
        for (const std::uint32_t id : std::span(lists.ids).subspan(list.begin, list.count)) {
            if (id >= entryCount) continue;
            repeated[list.bucket].push_back(id);
            ++repeatedCount;
        }
    }
    fFileIds = std::move(lists.ids);
    fFileLists = std::move(fileLists);
    fFileLimit = entryCount;
    fAdded = std::move(repeated);
    fAddedCount = repeatedCount;
}

void BucketTable::Reserve(std::uint32_t bucket) {
    if (!fAdded) fAdded = NewLists();
    Ids& ids = fAdded[bucket];
    if (ids.size() == ids.capacity()) ids.reserve(ids.size() * 2 + 1);
}

void BucketTable::Append(std::uint32_t bucket, std::uint32_t id) {
    Reserve(bucket);
    fAdded[bucket].push_back(id);
    ++fAddedCount;
}

void BucketTable::ReplaceAdded(std::uint32_t bucket, Ids& ids) noexcept {
    fAddedCount += ids.size() - fAdded[bucket].size();
    fAdded[bucket].swap(ids);
}

} // namespace kestrel_private
