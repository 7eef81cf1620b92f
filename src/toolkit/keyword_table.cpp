#include "toolkit/keyword_table.h"

namespace brixen::zeve {

void KeywordTable::Define(std::string_view keyword, BoxMaker maker) {
    Bucket& bucket = buckets[KeyBucket(keyword)];
    for (Entry& entry : bucket) {
        if (entry.keyword != keyword) continue;
        entry.maker = maker;
        return;
    }
    bucket.push_front({std::string(keyword), maker});
}

BoxMaker KeywordTable::Find(std::string_view keyword) const {
    for (const Entry& entry : buckets[KeyBucket(keyword)]) {
        if (entry.keyword == keyword) return entry.maker;
    }
    return nullptr;
}

} // namespace brixen::zeve
