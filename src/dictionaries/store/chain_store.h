#pragma once

#include "dictionaries/store/dictionary_entry.h"
#include "dictionaries/store/key_text.h"

#include <cstdint>
#include <memory>
#include <string_view>

namespace kestrel_private {

// The older store: one chain of entries a bucket, the newest at its head.
class ChainStore {
public:
    ChainStore() = default;
    ChainStore(const ChainStore&) = delete;
    ChainStore& operator=(const ChainStore&) = delete;
    ~ChainStore();

    // Null when there is none; valid until the key is replaced.
    const DictionaryEntry* Find(std::string_view key) const;
    // Destroys an older entry of the key, and puts the new one at the head of its chain.
    void Replace(std::string_view key, const kestrel::ZString& value);

    // Puts entries one behind the other in front of what a chain holds, without a look at their keys.
    class Front {
    public:
        Front(ChainStore& store, std::uint32_t bucket) : place(&store.Head(bucket)) {}
        void Add(std::string_view key, const kestrel::ZString& value);

    private:
        std::unique_ptr<HashItem>* place; // of the next one
    };

private:
    using Link = std::unique_ptr<HashItem>;

    Link& Head(std::uint32_t bucket);

    // Where the last search ended: in this bucket, behind this item (null for the head of the chain).
    mutable std::uint32_t lastBucket = 0;
    mutable HashItem* previousItem = nullptr;
    std::unique_ptr<Link[]> heads; // kBucketCount, made with the first entry
};

} // namespace kestrel_private
