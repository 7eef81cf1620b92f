#pragma once

#include "dictionaries/dictionary_entry.h"
#include "dictionaries/key_text.h"

#include <array>
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
        Front(ChainStore& store, std::uint32_t bucket) : fPlace(&store.fHeads[bucket]) {}
        void Add(std::string_view key, const kestrel::ZString& value);

    private:
        std::unique_ptr<HashItem>* fPlace; // of the next one
    };

private:
    // Where the last search ended: in this bucket, behind this item (null for the head of the chain).
    mutable std::uint32_t fLastBucket = 0;
    mutable HashItem* fPreviousItem = nullptr;
    std::array<std::unique_ptr<HashItem>, kBucketCount> fHeads;
};

} // namespace kestrel_private
