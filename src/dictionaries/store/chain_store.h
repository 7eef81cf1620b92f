// The older store: chains of entries.
#pragma once

#include "dictionaries/store/dictionary_entry.h"
#include "dictionaries/store/key_text.h"

#include <cstdint>
#include <memory>
#include <string_view>

namespace kestrel_private {

// One chain of entries for each bucket. Searches write scratch fields: one thread at a time.
class ChainStore {
public:
    ChainStore() = default;
    ChainStore(const ChainStore&) = delete;
    ChainStore& operator=(const ChainStore&) = delete;
    ~ChainStore();

    // The first entry of the key in its chain, until the key is replaced; null when there is none.
    [[nodiscard]] const DictionaryEntry* Find(std::string_view key) const;
    // Destroys the entry that Find returns and puts a new one at the head of its chain. On bad_alloc all is
    // as before.
    void Replace(std::string_view key, const kestrel::ZString& value);

    // Puts entries before those that a chain holds, in their order, and does not compare their keys. The
    // bucket is below kBucketCount.
    class Front {
    public:
        Front(ChainStore& store, std::uint32_t bucket) : place(&store.Head(bucket)) {}
        void Add(std::string_view key, const kestrel::ZString& value);

    private:
        std::unique_ptr<HashItem>* place; // of the next entry
    };

private:
    using Link = std::unique_ptr<HashItem>;

    Link& Head(std::uint32_t bucket);

    // Where the last search ended: in this bucket, after this item (null for the head of the chain).
    mutable std::uint32_t lastBucket = 0;
    mutable HashItem* previousItem = nullptr;
    std::unique_ptr<Link[]> heads; // kBucketCount, made with the first entry
};

} // namespace kestrel_private
