// The variables of one scope.
#pragma once

#include "view/scope/scope_name.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <map>
#include <memory>
#include <memory_resource>
#include <string_view>
#include <vector>

namespace brixen::zeve {

// The marker of a missing number. scope_arithmetic.h documents how it spreads.
inline constexpr std::int64_t kUndefinedNumber = std::numeric_limits<std::int32_t>::min();

// The text of every number. Its address tells it from other empty texts.
inline constexpr char kEmptyScopeBytes[1] = {};
inline constexpr std::string_view kEmptyScopeString(kEmptyScopeBytes);

// Both sides of a variable, or nothing.
struct FoundValue {
    std::int64_t number = kUndefinedNumber;
    const char* string = nullptr; // NUL-terminated; null if there is no such variable

    explicit operator bool() const { return string != nullptr; }
};

// Finds by hash, the newest first among names that share a bucket. Thousands of scopes are alive at once, so
// a scope of few names has no buckets, and plain numbers of listed names have no record. A scope of some
// hundred names finds them by their order instead, so that a hostile text, with any number of names of one
// hash, makes no long chains.
class ScopeTable {
public:
    static constexpr std::uint32_t kBucketCount = 127;

    // `memory` outlives the table.
    explicit ScopeTable(std::pmr::memory_resource& memory) : records(&memory), index(nullptr, {&memory}) {}

    bool IsEmpty() const { return held == 0; }
    std::size_t Count() const;

    std::uint64_t Marks() const { return held; }
    bool MayHold(const ScopeName& name) const { return (held >> name.mark & 1) != 0; }

    FoundValue Find(const ScopeName& name) const {
        if (!MayHold(name)) {
            return {};
        }
        if (name.IsListed() && (plainNumbers >> name.mark & 1) != 0) {
            return {numbers[name.mark], kEmptyScopeBytes};
        }
        return FindRecord(name);
    }

    // Returns false, and changes nothing, if the listed name has a record.
    [[nodiscard]] bool SetPlainNumber(const ScopeName& name, std::int64_t number) {
        const std::uint64_t bit = std::uint64_t{1} << name.mark;
        if ((held & bit) != 0 && (plainNumbers & bit) == 0) {
            return false;
        }
        held |= bit;
        plainNumbers |= static_cast<std::uint32_t>(bit);
        numbers[name.mark] = number;
        return true;
    }

    // Replaces both sides of a record. Returns false if there is none.
    [[nodiscard]] bool Replace(const ScopeName& name, std::int64_t number, const char* string);
    // Adds a record, which replaces a plain number of that name; there must be no record yet. `storedName` is
    // the text to keep. Throws std::bad_alloc, and then nothing has changed.
    void Add(const ScopeName& name, const char* storedName, std::int64_t number, const char* string);

private:
    struct Record {
        const char* name;
        std::size_t nameLength;
        std::int64_t number;
        const char* string; // NUL-terminated, never null
        std::uint32_t hash;
        std::uint32_t next; // place + 1 of the next record of the bucket; 0 for none

        std::string_view Name() const { return {name, nameLength}; }
        bool Is(const ScopeName& wanted) const { return hash == wanted.hash && Name() == wanted.text; }
    };

    using PlacesByName = std::pmr::map<std::string_view, std::uint32_t>;

    // Finds a record when there are more than a few.
    struct Index {
        explicit Index(std::pmr::memory_resource* memory) : byName(memory) {}

        std::array<std::uint32_t, kBucketCount> heads{}; // place + 1 of each bucket's newest record, or 0
        PlacesByName byName;                             // places of all records; empty until there are many
    };
    struct DeleteIndex {
        std::pmr::memory_resource* memory;
        void operator()(Index* gone) const { std::pmr::polymorphic_allocator<>(memory).delete_object(gone); }
    };

    FoundValue FindRecord(const ScopeName& name) const;
    const Record* RecordOf(const ScopeName& name) const;
    void MakeRoom();
    void MakeIndex();
    void LinkIntoBucket(std::uint32_t place);
    void OrderByName();

    std::uint64_t held = 0;                    // the marks of all names that are here
    std::uint32_t plainNumbers = 0;            // the listed names whose number is in `numbers`
    std::pmr::vector<Record> records;          // in order of definition
    std::unique_ptr<Index, DeleteIndex> index; // null while there are few
    std::int64_t numbers[kListedNames.size()]; // NOLINT: read only where plainNumbers says so
};

} // namespace brixen::zeve
