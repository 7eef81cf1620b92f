#include "toolkit/boxes/item_list.h"

#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <utility>
#include <vector>

namespace brixen::zeve {
namespace {

using Pairs = std::vector<std::pair<std::string, std::string>>;

Pairs Parse(std::string_view text, Separators separators = Separators::kDrop) {
    Pairs pairs;
    for (const ListItem& item : ParseItemList(text, separators)) pairs.emplace_back(item.label, item.value);
    return pairs;
}

const std::pair<std::string, std::string> kSeparator = {"-", "<$zeve_enum-item_separator$>"};

struct Case {
    const char* text;
    Pairs dropping;
    Pairs keeping;
};

const Case kCases[] = {
    {"", {}, {}},
    {"One{1}", {{"One", "1"}}, {{"One", "1"}}},
    {"One{1};Two{2}", {{"One", "1"}, {"Two", "2"}}, {{"One", "1"}, {"Two", "2"}}},
    // Equal value, equal label.
    {"One{1};Two{1}", {{"One", "1"}}, {{"One", "1"}}},
    {"One{1};One{2}", {{"One", "1"}}, {{"One", "1"}}},
    // Empty entries are skipped.
    {";;One{1};;Two{2};", {{"One", "1"}, {"Two", "2"}}, {{"One", "1"}, {"Two", "2"}}},
    {";", {}, {}},
    // Nothing is trimmed.
    {" One { 1 } ", {{" One ", " 1 "}}, {{" One ", " 1 "}}},
    // The value ends at the first closing brace after the opening one.
    {"a}b{c}d}", {{"a}b", "c"}}, {{"a}b", "c"}}},
    {"a{{b}", {{"a", "{b"}}, {{"a", "{b"}}},
    {"a{}", {{"a", ""}}, {{"a", ""}}},
    {"{1}", {{"", "1"}}, {{"", "1"}}},
    // Entries without both braces, in that order, are separators, each of them.
    {"One{1};-;Two{2}", {{"One", "1"}, {"Two", "2"}}, {{"One", "1"}, kSeparator, {"Two", "2"}}},
    {"x;y;a}b{;{", {}, {kSeparator, kSeparator, kSeparator, kSeparator}},
};

TEST(ItemList, ReadsLabelsAndValues) {
    for (const Case& test : kCases) {
        EXPECT_EQ(Parse(test.text, Separators::kDrop), test.dropping) << test.text;
        EXPECT_EQ(Parse(test.text, Separators::kKeep), test.keeping) << test.text;
    }
}

TEST(ItemList, DropsAnEntryThatEqualsASeparator) {
    EXPECT_EQ(Parse("x;-{1}", Separators::kKeep), Pairs{kSeparator});
    EXPECT_EQ(Parse("x;-{1}", Separators::kDrop), (Pairs{{"-", "1"}}));
}

TEST(ItemList, ReadsALongListInLinearTime) {
    std::string text;
    for (int i = 0; i < 50'000; ++i) text += std::to_string(i) + "{v" + std::to_string(i) + "};";
    text += "7{x};y{v8};z{z}";
    const std::vector<ListItem> items = ParseItemList(text, Separators::kKeep);
    ASSERT_EQ(items.size(), 50'001u);
    EXPECT_EQ(items[49'999].value, "v49999");
    EXPECT_EQ(items.back().label, "z");
}

TEST(ItemList, FindsTheFirstItemWithAValue) {
    const std::vector<ListItem> items = ParseItemList("One{1};Two{2};Zero{}", Separators::kDrop);
    EXPECT_EQ(FindItemByValue(items, "2"), &items[1]);
    EXPECT_EQ(FindItemByValue(items, ""), &items[2]);
    EXPECT_EQ(FindItemByValue(items, "3"), nullptr);
    EXPECT_EQ(FindItemByValue({}, "1"), nullptr);
}

} // namespace
} // namespace brixen::zeve
