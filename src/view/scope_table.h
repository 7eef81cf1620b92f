// The variables of one scope: records in order of definition, found by hash.
#pragma once

#include "view/scope_name.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace brixen::zeve {

// A value has two sides and no type: see expression_scope.h.
struct ScopeVariable {
    const char* name; // NUL-terminated
    std::size_t nameLength;
    std::int64_t number;
    const char* string; // NUL-terminated, never null
    std::uint32_t hash;
    std::uint32_t next; // place + 1 of the next record of the bucket; 0 for none
};

// A scope has 127 buckets, the newest record first in each. Most hold a handful of names and a window full of
// them is alive at once, so a head is a byte as long as that reaches; only a scope of more than 255 names
// gets a table of its own that grows with it, which keeps texts of a million names from searching chains of
// thousands.
class ScopeTable {
public:
    bool IsEmpty() const { return records.empty(); }
    std::size_t Count() const { return records.size(); }

    const ScopeVariable* Find(const ScopeName& name) const {
        for (std::uint32_t place = Head(name); place != 0;) {
            const ScopeVariable& record = records[place - 1];
            if (record.hash == name.hash && std::string_view(record.name, record.nameLength) == name.text) {
                return &record;
            }
            place = record.next;
        }
        return nullptr;
    }
    ScopeVariable* Find(const ScopeName& name) {
        return const_cast<ScopeVariable*>(static_cast<const ScopeTable*>(this)->Find(name));
    }

    // Makes room for one more record; throws std::bad_alloc and has changed nothing then.
    void Reserve();
    // The name must be new to the table, Reserve called before. `storedName` is the text to keep.
    void Add(const ScopeName& name, std::string_view storedName, std::int64_t number,
             const char* string) noexcept;

private:
    std::uint32_t Head(const ScopeName& name) const {
        return wideHeads.empty() ? heads[name.bucket] : wideHeads[WideBucket(name.hash)];
    }
    std::size_t WideBucket(std::uint32_t hash) const;
    void Widen(std::size_t headCount);

    std::array<std::uint8_t, kScopeBucketCount> heads{}; // place + 1 of the newest record; 0 for none
    std::vector<ScopeVariable> records;
    std::vector<std::uint32_t> wideHeads; // in use once it is not empty; a power of two
};

} // namespace brixen::zeve
