// Finds ids by whole keys.
#pragma once

#include "dictionaries/store/text_column.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace kestrel_private {

// A hash table from keys to ids, for buckets that are too long to search. A lookup reads one line of the
// processor's cache for each key: it holds the id, where the value is, and a copy of the key unless the key
// is long. The bytes of long keys and of values are borrowed. A key keeps the first id that it gets. Keys and
// values have at most kLongestText bytes.
class KeyIndex {
public:
    struct Entry {
        std::uint32_t id;
        ValueBytes value;
    };

    bool IsBuilt() const { return !slots.empty(); }
    void Clear();
    // Builds an empty table with room for `count` keys. On bad_alloc no table is built.
    void Start(std::size_t count);
    // Does nothing for a key that is here already. On bad_alloc the key is not here. The table is built, here
    // and in Find.
    void Insert(std::string_view key, const Entry& entry);
    [[nodiscard]] std::optional<Entry> Find(std::string_view key) const;
    // Replaces the value of a key. Does nothing when the key has another id, or the table is not built.
    void SetValue(std::string_view key, const Entry& entry);

private:
    static constexpr std::uint32_t kFree = 0xFFFFFFFF; // more than there are records

    struct Slot {
        std::uint32_t record = kFree;
        std::uint32_t tag = 0; // the upper bits of the hash, which do not choose the slot
    };

    // One line of the cache.
    class alignas(64) Record {
    public:
        Record(std::string_view key, const Entry& entry);
        std::string_view Key() const { return {keyLength <= sizeof copy ? copy : borrowed, keyLength}; }
        Entry Found() const { return {id, {value, valueLength}}; }
        void SetValue(const ValueBytes& newValue);

    private:
        union {
            char copy[48]; // of a key of up to this length
            const char* borrowed;
        };
        const std::uint8_t* value;
        std::uint32_t id;
        std::uint16_t keyLength, valueLength;
    };
    static_assert(sizeof(Record) == 64);

    // The slot of the key, or the free slot where it belongs.
    std::size_t SlotFor(std::string_view key, std::uint64_t hash) const;
    void Resize(std::size_t slotCount);

    std::vector<Slot> slots; // a power of two, never full
    std::vector<Record> records;
    std::uint64_t seed = 0; // of the hash
};

} // namespace kestrel_private
