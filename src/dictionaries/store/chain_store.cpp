#include "dictionaries/store/chain_store.h"

#include <utility>

namespace kestrel_private {

ChainStore::~ChainStore() {
    // One by one, since a chain that destroys itself does so by recursion.
    for (std::uint32_t bucket = 0; fHeads && bucket < kBucketCount; ++bucket) {
        Link& head = fHeads[bucket];
        while (head) head = std::move(head->next);
    }
}

ChainStore::Link& ChainStore::Head(std::uint32_t bucket) {
    if (!fHeads) fHeads = std::make_unique<Link[]>(kBucketCount);
    return fHeads[bucket];
}

const DictionaryEntry* ChainStore::Find(std::string_view key) const {
    const ByteRunKey searched(key, ByteRunKey::Bytes::Borrowed);
    fLastBucket = searched.Hash(kBucketCount);
    fPreviousItem = nullptr;
    if (!fHeads) return nullptr;
    for (HashItem* item = fHeads[fLastBucket].get(); item != nullptr; item = item->next.get()) {
        if (searched.Equals(*item)) return static_cast<DictionaryEntry*>(item);
        fPreviousItem = item;
    }
    return nullptr;
}

void ChainStore::Replace(std::string_view key, const kestrel::ZString& value) {
    auto entry = std::make_unique<DictionaryEntry>(key, value);
    const bool isThere = Find(key) != nullptr;
    Link& head = Head(fLastBucket);
    if (isThere) {
        Link& link = fPreviousItem == nullptr ? head : fPreviousItem->next;
        link = std::move(link->next);
    }
    fPreviousItem = nullptr;
    entry->next = std::move(head);
    head = std::move(entry);
}

void ChainStore::Front::Add(std::string_view key, const kestrel::ZString& value) {
    auto entry = std::make_unique<DictionaryEntry>(key, value);
    entry->next = std::move(*fPlace);
    *fPlace = std::move(entry);
    fPlace = &(*fPlace)->next;
}

} // namespace kestrel_private
