#include "dictionaries/store/bucket_table.h"

#include <utility>

namespace kestrel_private {

void BucketTable::TakeFile(const BucketLists& lists, std::uint32_t entryCount) {
    auto firstLists = std::make_unique<FileList[]>(kBucketCount);
    std::unique_ptr<Ids[]> repeated;
    std::size_t repeatedCount = 0;
    lists.ForEachList([&](std::uint32_t bucket, std::uint32_t begin, std::uint32_t count) {
        FileList& first = firstLists[bucket];
        if (first.count == 0) {
            first = {begin, count};
            return;
        }
        // Further lists of a bucket follow the first as if they came later.
        if (!repeated) repeated = NewLists();
        for (std::size_t i = begin; i < std::size_t{begin} + count; ++i) {
            if (lists.ids[i] >= entryCount) continue;
            repeated[bucket].push_back(lists.ids[i]);
            ++repeatedCount;
        }
    });
    fileIds = lists.ids;
    fileLists = std::move(firstLists);
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
