#pragma once

#include "dictionaries/store/text_column.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace kestrel_private {

// A table from whole keys to ids, made when the buckets of the store prove too long to scan. All that a
// lookup needs of a key stands in one line of the processor's cache, with a copy of the key unless that is
// long. It borrows the bytes of long keys and of the values. The first id given for a key stays.
class KeyIndex {
public:
    struct Entry {
        std::uint32_t id;
        ValueBytes value;
    };

    bool IsBuilt() const { return !slots.empty(); }
    void Clear();
    // Room for `count` keys. Builds the table.
    void Start(std::size_t count);
    void Insert(std::string_view key, const Entry& entry);
    std::optional<Entry> Find(std::string_view key) const;
    // The value of that entry changed; nothing happens when another id stands for the key, or none.
    void SetValue(std::string_view key, const Entry& entry);

private:
    static constexpr std::uint32_t kFree = 0xFFFFFFFF; // as many records there never are

    struct Slot {
        std::uint32_t record = kFree;
        std::uint32_t tag = 0; // bits of the hash that did not choose the slot
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
            char copy[48]; // of a key that is no longer
            const char* borrowed;
        };
        const std::uint8_t* value;
        std::uint32_t id;
        std::uint16_t keyLength, valueLength;
    };
    static_assert(sizeof(Record) == 64);

    // The slot of the key, or the free one where it belongs.
    std::size_t SlotFor(std::string_view key, std::uint64_t hash) const;
    void Resize(std::size_t slotCount);

    std::vector<Slot> slots; // a power of two, never full
    std::vector<Record> records;
    std::uint64_t seed = 0; // of the hash
};

} // namespace kestrel_private
