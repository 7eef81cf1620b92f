#pragma once

#include "dictionaries/text_column.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace kestrel_private {

// A table from whole keys to ids, made when the buckets of the store prove too long to scan. It borrows the
// bytes of the keys and of the values, which stand beside them so that a lookup needs to go nowhere else. The
// first id given for a key stays.
class KeyIndex {
public:
    struct Entry {
        std::uint32_t id;
        ValueBytes value;
    };

    bool IsBuilt() const { return !fSlots.empty(); }
    void Clear();
    // Room for `count` keys. Builds the table.
    void Start(std::size_t count);
    void Insert(std::string_view key, const Entry& entry);
    std::optional<Entry> Find(std::string_view key) const;
    // The value of that entry changed; nothing happens when another id stands for the key, or none.
    void SetValue(std::string_view key, const Entry& entry);

private:
    static constexpr std::uint32_t kFree = 0xFFFFFFFF; // no entry has this id

    struct Slot {
        const char* key = nullptr;
        ValueBytes value;
        std::uint32_t id = kFree;
        std::uint16_t length = 0;
        std::uint16_t tag = 0; // bits of the hash that did not choose the slot
    };

    // The slot of the key, or the free one where it belongs.
    std::size_t SlotFor(std::string_view key) const;
    void Resize(std::size_t slotCount);

    std::vector<Slot> fSlots; // a power of two, never full
    std::size_t fUsed = 0;
    std::uint64_t fSeed = 0; // of the hash
};

} // namespace kestrel_private
