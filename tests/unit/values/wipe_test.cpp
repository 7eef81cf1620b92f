#include "values/wipe.h"

#include <gtest/gtest.h>

#include <cstring>

namespace brixen::pvn {
namespace {

constexpr char kKey[] = "secret";

// The bytes that the bag holds, and how many.
struct Held {
    explicit Held(T_Storage& bag) {
        bag.Get(kKey, kValueTypeString, &text);
        size = std::strlen(text);
    }
    const char* text = nullptr;
    std::size_t size = 0;
};

// A bag whose Remove forgets nothing, so that a test can look at the bytes.
class KeepingBag final : public T_StorageInterface {
public:
    bool Set(std::string_view key, std::string_view type, const void* value) override {
        return bag.Set(key, type, value);
    }
    bool Get(std::string_view key, std::string_view type, void* out) override {
        return bag.Get(key, type, out);
    }
    void Remove(std::string_view, std::string_view) override { ++removals; }

    T_Storage bag;
    int removals = 0;
};

TEST(Wipe, OverwritesEveryByte) {
    char bytes[] = "abcdef";
    Wipe(bytes + 1, 4);
    EXPECT_EQ(std::string(bytes, 6), std::string("a\0\0\0\0f", 6));
    Wipe(nullptr, 0);
}

TEST(Wipe, OverwritesAllRoomOfAText) {
    std::string text = "a password that is too long for a short text";
    const char* const bytes = text.data();
    const std::size_t room = text.size();
    text.resize(10);
    Wipe(text);
    EXPECT_TRUE(text.empty());
    for (std::size_t at = 0; at < room; ++at) EXPECT_EQ(bytes[at], '\0') << at;
    std::u16string wide = u"a password that is too long for a short text";
    const char16_t* const units = wide.data();
    Wipe(wide);
    EXPECT_TRUE(wide.empty());
    EXPECT_EQ(units[0], u'\0');
    EXPECT_EQ(units[43], u'\0');
}

TEST(RemoveSecret, OverwritesTheBytesOfTheBag) {
    for (const char* const secret : {"short", "a password that is too long for a short text"}) {
        KeepingBag bag;
        SetString(bag, kKey, secret);
        const Held held(bag.bag);
        RemoveSecret(bag, kKey);
        EXPECT_EQ(bag.removals, 1);
        for (std::size_t at = 0; at < held.size; ++at) EXPECT_EQ(held.text[at], '\0') << at;
    }
}

TEST(RemoveSecret, LeavesNoValue) {
    T_Storage bag;
    SetString(bag, kKey, "secret");
    RemoveSecret(bag, kKey);
    std::string text;
    EXPECT_FALSE(GetString(bag, kKey, text));
    RemoveSecret(bag, kKey);
}

TEST(CopySecret, ReplacesAnEarlierValue) {
    T_Storage from;
    KeepingBag to;
    SetString(from, kKey, "new");
    SetString(to, kKey, "a much longer earlier secret, on the heap");
    EXPECT_TRUE(CopySecret(from, to, kKey));
    EXPECT_EQ(to.removals, 1);
    std::string text;
    EXPECT_TRUE(GetString(to, kKey, text));
    EXPECT_EQ(text, "new");
}

TEST(CopySecret, LeavesTheOtherBagAloneWithoutAValue) {
    T_Storage from, to;
    SetString(to, kKey, "kept");
    EXPECT_FALSE(CopySecret(from, to, kKey));
    std::string text;
    EXPECT_TRUE(GetString(to, kKey, text));
    EXPECT_EQ(text, "kept");
}

} // namespace
} // namespace brixen::pvn
