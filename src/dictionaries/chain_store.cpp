#include "dictionaries/chain_store.h"

#include <utility>

namespace kestrel_private {

ChainStore::~ChainStore() {
    // One by one, since a chain that destroys itself does so by recursion.
    for (auto& head : fHeads) {
        while (head) head = std::move(head->next);
    }
}

const DictionaryEntry* ChainStore::Find(std::string_view key) const {
    const ByteRunKey searched(key, ByteRunKey::Bytes::Borrowed);
    fLastBucket = searched.Hash(kBucketCount);
    fPreviousItem = nullptr;
    for (HashItem* item = fHeads[fLastBucket].get(); item != nullptr; item = item->next.get()) {
        if (searched.Equals(*item)) return static_cast<DictionaryEntry*>(item);
        fPreviousItem = item;
    }
    return nullptr;
}

void ChainStore::Replace(std::string_view key, const kestrel::ZString& value) {
    auto entry = std::make_unique<DictionaryEntry>(key, value);
    if (Find(key) != nullptr) {
        std::unique_ptr<HashItem>& link =
            fPreviousItem == nullptr ? fHeads[fLastBucket] : fPreviousItem->next;
        link = std::move(link->next);
    }
    fPreviousItem = nullptr;
    entry->next = std::move(fHeads[fLastBucket]);
    fHeads[fLastBucket] = std::move(entry);
}

void ChainStore::Front::Add(std::string_view key, const kestrel::ZString& value) {
    auto entry = std::make_unique<DictionaryEntry>(key, value);
    entry->next = std::move(*fPlace);
    *fPlace = std::move(entry);
    fPlace = &(*fPlace)->next;
}

} // namespace kestrel_private
