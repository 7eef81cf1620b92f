#include "dictionaries/store/chain_store.h"

#include <utility>

namespace kestrel_private {

ChainStore::~ChainStore() {
    // One by one: a chain that destroys itself is a recursion.
    for (std::uint32_t bucket = 0; heads && bucket < kBucketCount; ++bucket) {
        Link& head = heads[bucket];
        while (head) head = std::move(head->next);
    }
}

ChainStore::Link& ChainStore::Head(std::uint32_t bucket) {
    if (!heads) heads = std::make_unique<Link[]>(kBucketCount);
    return heads[bucket];
}

const DictionaryEntry* ChainStore::Find(std::string_view key) const {
    const ByteRunKey searched(key, ByteRunKey::Bytes::kBorrowed);
    lastBucket = searched.Hash(kBucketCount);
    previousItem = nullptr;
    if (!heads) return nullptr;
    for (HashItem* item = heads[lastBucket].get(); item != nullptr; item = item->next.get()) {
        if (searched.Equals(*item)) return static_cast<DictionaryEntry*>(item);
        previousItem = item;
    }
    return nullptr;
}

void ChainStore::Replace(std::string_view key, const kestrel::ZString& value) {
    auto entry = std::make_unique<DictionaryEntry>(key, value);
    const bool isThere = Find(key) != nullptr;
    Link& head = Head(lastBucket);
    if (isThere) {
        Link& link = previousItem == nullptr ? head : previousItem->next;
        link = std::move(link->next);
    }
    previousItem = nullptr;
    entry->next = std::move(head);
    head = std::move(entry);
}

void ChainStore::Front::Add(std::string_view key, const kestrel::ZString& value) {
    auto entry = std::make_unique<DictionaryEntry>(key, value);
    entry->next = std::move(*place);
    *place = std::move(entry);
    place = &(*place)->next;
}

} // namespace kestrel_private
