// The process-wide table from a view's keyword to the maker of its box. Dialogs are made on one thread, and
// so is this table used: it has no lock. It is emptied for tests by ResetToolkit.
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
    // Enters a keyword with its maker; a keyword that is there already gets the new maker.
    void Define(std::string_view keyword, BoxMaker maker);
    // Null for a keyword that the table lacks.
    BoxMaker Find(std::string_view keyword) const;

private:
    struct Entry {
        std::string keyword;
        BoxMaker maker;
    };
    using Bucket = std::forward_list<Entry>; // newest first

    std::array<Bucket, kKeyBuckets> fBuckets;
};

} // namespace brixen::zeve
