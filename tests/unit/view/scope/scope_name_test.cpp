#include "view/scope/scope_name.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

namespace brixen::zeve {
namespace {

TEST(ScopeName, HashesDigitsLettersAndUnderscore) {
    struct Case {
        std::string_view name;
        std::uint32_t hash;
    };
    const Case cases[] = {{"", 0},
                          {"0", 0},
                          {"9", 9},
                          {"A", 10},
                          {"Z", 35},
                          {"a", 36},
                          {"z", 61},
                          {"_", 62},
                          {"ab", 36 * 63 + 37},
                          {"a-b", (36 * 63) * 63 + 37},
                          {"\xC3", 0},
                          {"__gen", ((((62u * 63 + 62) * 63 + 42) * 63 + 40) * 63) + 49}};
    for (const auto& [name, hash] : cases) EXPECT_EQ(ScopeNameHash(name), hash) << name;
}

TEST(ScopeName, HashWrapsAtThirtyTwoBits) {
    std::uint64_t exact = 0;
    for (char byte : std::string_view("zzzzzzzz")) exact = exact * 63 + ScopeNameByteCode(byte);
    EXPECT_GT(exact, 0xFFFFFFFFu);
    EXPECT_EQ(ScopeNameHash("zzzzzzzz"), static_cast<std::uint32_t>(exact));
}

TEST(ScopeName, KnowsTheListedNamesHoweverTheyAreWritten) {
    std::set<int> marks;
    for (std::string_view name : kListedNames) {
        EXPECT_TRUE(ScopeName(std::string(name)).IsListed()) << name;
        marks.insert(ScopeName(name).mark);
    }
    EXPECT_EQ(marks.size(), kListedNames.size());
    EXPECT_EQ(ScopeName(std::string("margin")).mark, "margin"_name.mark);
    EXPECT_FALSE("margins"_name.IsListed());
}

TEST(ScopeName, OtherNamesShareTheMarksAfterTheListedOnes) {
    std::set<int> marks;
    for (int n = 0; n < 1000; ++n) marks.insert(ScopeName("name" + std::to_string(n)).mark);
    EXPECT_EQ(marks.size(), 32u);
    EXPECT_EQ(*marks.begin(), 32);
    EXPECT_EQ(*marks.rbegin(), 63);
}

TEST(ScopeName, OnlyLiteralsLast) {
    EXPECT_TRUE("own_name"_name.lasts);
    EXPECT_FALSE(ScopeName("own_name").lasts);
    EXPECT_EQ("own_name"_name.hash, ScopeNameHash("own_name"));
}

} // namespace
} // namespace brixen::zeve
