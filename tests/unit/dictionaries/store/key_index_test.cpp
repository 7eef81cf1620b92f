#include "dictionaries/store/key_index.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

using kestrel_private::KeyIndex;
using kestrel_private::ValueBytes;

namespace {

std::optional<std::uint32_t> IdOf(const KeyIndex& index, std::string_view key) {
    const auto entry = index.Find(key);
    return entry ? std::optional(entry->id) : std::nullopt;
}

TEST(KeyIndex, DistinguishesKeysOfEveryLength) {
    std::vector<std::string> keys = {""};
    for (std::size_t length = 1; length <= 50; ++length) {
        for (std::size_t place = 0; place < length; ++place) {
            keys.push_back(std::string(length, '\0'));
            keys.back()[place] = 'k';
        }
    }
    KeyIndex index;
    index.Start(10); // grows
    for (std::uint32_t id = 0; id < keys.size(); ++id) index.Insert(keys[id], {id, {}});
    for (std::uint32_t id = 0; id < keys.size(); ++id) ASSERT_EQ(IdOf(index, keys[id]), id);
    for (std::size_t length = 1; length <= 50; ++length) {
        ASSERT_EQ(IdOf(index, std::string(length, '\0')), std::nullopt);
    }
}

TEST(KeyIndex, ReturnsTheValueOfAKeyOfAnyLength) {
    const std::uint8_t values[100] = {};
    std::vector<std::string> keys;
    for (std::size_t length = 0; length < 100; ++length) keys.emplace_back(length, 'k');
    KeyIndex index;
    index.Start(0); // grows, and moves what it holds
    for (std::uint32_t id = 0; id < 100; ++id) index.Insert(keys[id], {id, {values + id, 0xFFFF - id}});
    for (std::uint32_t id = 0; id < 100; ++id) {
        const auto entry = index.Find(keys[id]);
        ASSERT_TRUE(entry);
        EXPECT_EQ(entry->id, id);
        EXPECT_EQ(entry->value.bytes, values + id);
        EXPECT_EQ(entry->value.length, 0xFFFF - id);
    }
}

TEST(KeyIndex, KeepsTheFirstIdOfAKey) {
    KeyIndex index;
    index.Start(2);
    index.Insert("/a", {7, {}});
    index.Insert("/a", {8, {}});
    EXPECT_EQ(IdOf(index, "/a"), 7u);
    const std::uint8_t value[] = {1};
    index.SetValue("/a", {8, {value, 1}});
    EXPECT_EQ(index.Find("/a")->value.length, 0u);
    index.SetValue("/a", {7, {value, 1}});
    EXPECT_EQ(index.Find("/a")->value.length, 1u);
}

// Returns keys that a hash by one well-known factor and shifts would all map to one number.
std::vector<std::string> CollidingKeys(std::uint64_t count) {
    constexpr std::uint64_t kFactor = 0x9E3779B97F4A7C15;
    constexpr std::uint64_t kLength = 16;
    std::uint64_t inverse = 1;
    for (int i = 0; i < 6; ++i) inverse *= 2 - kFactor * inverse;
    const auto mix = [](std::uint64_t hash, std::uint64_t word) {
        hash = (hash ^ word) * kFactor;
        return hash ^ hash >> 32;
    };
    std::vector<std::string> keys;
    for (std::uint64_t first = 0; first < count; ++first) {
        const std::uint64_t wanted = 0 - mix(mix(kLength * kFactor, first), 0);
        const std::uint64_t second = (wanted ^ wanted >> 32) * inverse ^ ~(kLength * kFactor);
        std::string key(kLength, '\0');
        std::memcpy(key.data(), &first, sizeof first);
        std::memcpy(key.data() + sizeof first, &second, sizeof second);
        keys.push_back(key);
    }
    return keys;
}

// If each were compared with all earlier ones, these keys would take longer than any test may.
TEST(KeyIndex, AcceptsManyKeysThatWereChosenToCollide) {
    const std::vector<std::string> keys = CollidingKeys(400'000);
    KeyIndex index;
    index.Start(keys.size());
    for (std::uint32_t id = 0; id < keys.size(); ++id) index.Insert(keys[id], {id, {}});
    for (std::uint32_t id = 0; id < keys.size(); ++id) ASSERT_EQ(IdOf(index, keys[id]), id);
}

} // namespace
