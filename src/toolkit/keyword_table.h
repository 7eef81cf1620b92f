// The table from keywords of views to makers of boxes. The process has one, gToolkit.keywords; it has no
// lock, because dialogs are made on one thread at a time.
#pragma once

#include "toolkit/key_hash.h"

#include <array>
#include <forward_list>
#include <memory>
#include <string>
#include <string_view>

namespace brixen::zeve {

class CEveBox;

using BoxMaker = std::unique_ptr<CEveBox> (*)();

class KeywordTable {
public:
    // Enters a keyword, or replaces the maker of one that the table has.
    void Define(std::string_view keyword, BoxMaker maker);
    // Returns null for an unknown keyword.
    [[nodiscard]] BoxMaker Find(std::string_view keyword) const;

private:
    struct Entry {
        std::string keyword;
        BoxMaker maker;
    };
    using Bucket = std::forward_list<Entry>; // newest first

    std::array<Bucket, kKeyBuckets> buckets;
};

} // namespace brixen::zeve
