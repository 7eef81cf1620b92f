#include "dictionaries/store/bucket_table.h"

#include <utility>

namespace kestrel_private {

void BucketTable::TakeFile(BucketLists lists, std::uint32_t entryCount) {
    auto newLists = std::make_unique<FileList[]>(kBucketCount);
    std::unique_ptr<Ids[]> repeated;
    std::size_t repeatedCount = 0;
    for (const BucketLists::List& list : lists.lists) {
        FileList& first = newLists[list.bucket];
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
    fileIds = std::move(lists.ids);
    fileLists = std::move(newLists);
    fileLimit = entryCount;
    added = std::move(repeated);
    addedCount = repeatedCount;
}

void BucketTable::Reserve(std::uint32_t bucket) {
    if (!added) added = NewLists();
    Ids& ids = added[bucket];
    if (ids.size() == ids.capacity()) ids.reserve(ids.size() * 2 + 1);
}

void BucketTable::Append(std::uint32_t bucket, std::uint32_t id) {
    Reserve(bucket);
    added[bucket].push_back(id);
    ++addedCount;
}

void BucketTable::ReplaceAdded(std::uint32_t bucket, Ids& ids) noexcept {
    addedCount += ids.size() - added[bucket].size();
    added[bucket].swap(ids);
}

} // namespace kestrel_private
