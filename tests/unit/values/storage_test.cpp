#include "values/storage.h"

#include "support/failing_allocator.h"

#include <gtest/gtest.h>

#include <new>

namespace brixen::pvn {
namespace {

constexpr char kKey[] = "PvnWFKey_AnyKey";

std::uint32_t LongIn(T_StorageInterface& bag, std::string_view key) {
    std::uint32_t value = 0;
    EXPECT_TRUE(GetLong(bag, key, value)) << key;
    return value;
}

std::string StringIn(T_StorageInterface& bag, std::string_view key) {
    std::string text;
    EXPECT_TRUE(GetString(bag, key, text)) << key;
    return text;
}

TEST(Storage, EachTypeHasAValueOfItsOwnUnderOneKey) {
    T_Storage bag;
    int object = 0;
    EXPECT_TRUE(SetLong(bag, kKey, 7));
    EXPECT_TRUE(SetString(bag, kKey, "seven"));
    EXPECT_TRUE(SetPtr(bag, kKey, &object));
    bag.Remove(kKey, kValueTypeString);

    EXPECT_EQ(LongIn(bag, kKey), 7u);
    std::string text = "before";
    EXPECT_FALSE(GetString(bag, kKey, text));
    EXPECT_EQ(text, "before");
    void* pointer = nullptr;
    EXPECT_TRUE(GetPtr(bag, kKey, pointer));
    EXPECT_EQ(pointer, &object);
}

TEST(Storage, AbsentKeysLeaveTheOutputAlone) {
    T_Storage bag;
    std::uint32_t number = 11;
    void* pointer = &number;
    std::string text = "kept";
    EXPECT_FALSE(GetLong(bag, kKey, number));
    EXPECT_FALSE(GetPtr(bag, kKey, pointer));
    EXPECT_FALSE(GetString(bag, kKey, text));
    EXPECT_EQ(number, 11u);
    EXPECT_EQ(pointer, &number);
    EXPECT_EQ(text, "kept");
}

TEST(Storage, AKeyOfAnotherTypeIsNotFound) {
    T_Storage bag;
    SetString(bag, kKey, "12");
    std::uint32_t number = 5;
    EXPECT_FALSE(GetLong(bag, kKey, number));
    EXPECT_EQ(number, 5u);
}

TEST(Storage, UnknownTypeNamesStoreFindAndRemoveNothing) {
    for (const std::string_view name : {"", "valuetype_long", "ValueType_Lon", "ValueType_Long ",
                                        "ValueType_LongX", "Value", "ValueType_Strinh", "ValueType_ptr"}) {
        T_Storage bag;
        const std::uint32_t value = 1;
        SetLong(bag, kKey, 42);
        SetString(bag, kKey, "text");
        EXPECT_TRUE(bag.Set(kKey, name, &value)) << name;
        void* out = &bag;
        EXPECT_FALSE(bag.Get(kKey, name, &out)) << name;
        EXPECT_EQ(out, &bag);
        bag.Remove(kKey, name);
        EXPECT_EQ(LongIn(bag, kKey), 42u);
        EXPECT_EQ(StringIn(bag, kKey), "text");
    }
}

TEST(Storage, ATypeNameWithAnEmbeddedNulIsAnotherName) {
    T_Storage bag;
    SetLong(bag, kKey, 3);
    std::uint32_t value = 0;
    EXPECT_FALSE(bag.Get(kKey, std::string_view("ValueType_Long\0", 15), &value));
}

TEST(Storage, AnEmptyStringIsAnEntry) {
    T_Storage bag;
    SetString(bag, kKey, "");
    std::string text = "before";
    EXPECT_TRUE(GetString(bag, kKey, text));
    EXPECT_EQ(text, "");
}

TEST(Storage, ANullPointerIsAnEntry) {
    T_Storage bag;
    SetPtr(bag, kKey, nullptr);
    void* pointer = &bag;
    EXPECT_TRUE(GetPtr(bag, kKey, pointer));
    EXPECT_EQ(pointer, nullptr);
}

TEST(Storage, ALaterValueReplacesTheEarlierOne) {
    T_Storage bag;
    SetLong(bag, kKey, 1);
    SetLong(bag, kKey, 2);
    SetString(bag, kKey, "a text that is much too long for the short form");
    SetString(bag, kKey, "b");
    int first = 0;
    int second = 0;
    SetPtr(bag, kKey, &first);
    SetPtr(bag, kKey, &second);
    EXPECT_EQ(LongIn(bag, kKey), 2u);
    EXPECT_EQ(StringIn(bag, kKey), "b");
    void* pointer = nullptr;
    EXPECT_TRUE(GetPtr(bag, kKey, pointer));
    EXPECT_EQ(pointer, &second);

    bag.Remove(kKey, kValueTypeLong);
    std::uint32_t number = 0;
    EXPECT_FALSE(GetLong(bag, kKey, number)) << "an earlier entry came up";
}

TEST(Storage, NegativeNumbersKeepTheirBits) {
    T_Storage bag;
    SetLong(bag, kKey, static_cast<std::uint32_t>(-5));
    EXPECT_EQ(static_cast<std::int32_t>(LongIn(bag, kKey)), -5);
}

TEST(Storage, KeysAreCaseSensitiveAndMayBeEmptyOrHoldAnyByte) {
    T_Storage bag;
    SetLong(bag, "key", 1);
    SetLong(bag, "Key", 2);
    SetLong(bag, "", 3);
    SetLong(bag, std::string_view("key\0", 4), 4);
    SetLong(bag, "k", 5);
    SetLong(bag, "\xff", 6);
    EXPECT_EQ(LongIn(bag, "key"), 1u);
    EXPECT_EQ(LongIn(bag, "Key"), 2u);
    EXPECT_EQ(LongIn(bag, ""), 3u);
    EXPECT_EQ(LongIn(bag, std::string_view("key\0", 4)), 4u);
    EXPECT_EQ(LongIn(bag, "k"), 5u);
    EXPECT_EQ(LongIn(bag, "\xff"), 6u);
}

TEST(Storage, TextIsCutAtAnEmbeddedNul) {
    T_Storage bag;
    SetString(bag, kKey, std::string("one\0two", 7));
    EXPECT_EQ(StringIn(bag, kKey), "one");
}

TEST(Storage, GetReturnsTheTextInsideTheBag) {
    T_Storage bag;
    SetString(bag, kKey, "inside");
    const char* first = nullptr;
    const char* second = nullptr;
    EXPECT_TRUE(bag.Get(kKey, kValueTypeString, &first));
    EXPECT_TRUE(bag.Get(kKey, kValueTypeString, &second));
    EXPECT_EQ(first, second);
    EXPECT_STREQ(first, "inside");
}

TEST(Storage, AKeyCanBeSetToItsOwnText) {
    T_Storage bag;
    SetString(bag, kKey, "a text that is much too long for the short form");
    const char* text = nullptr;
    bag.Get(kKey, kValueTypeString, &text);
    SetString(bag, kKey, text + 7);
    EXPECT_EQ(StringIn(bag, kKey), "that is much too long for the short form");
}

TEST(Storage, RemoveLeavesTheEntriesOfOtherTypes) {
    for (const std::string_view type : {kValueTypeLong, kValueTypeString, kValueTypePtr}) {
        T_Storage bag;
        SetLong(bag, kKey, 1);
        SetString(bag, kKey, "text");
        SetPtr(bag, kKey, &bag);
        bag.Remove(kKey, type);
        std::uint32_t number = 0;
        std::string text;
        void* pointer = nullptr;
        EXPECT_EQ(GetLong(bag, kKey, number), type != kValueTypeLong) << type;
        EXPECT_EQ(GetString(bag, kKey, text), type != kValueTypeString) << type;
        EXPECT_EQ(GetPtr(bag, kKey, pointer), type != kValueTypePtr) << type;
    }
}

TEST(Storage, RemovingAMissingKeyIsNoError) {
    T_Storage bag;
    SetLong(bag, "other", 9);
    bag.Remove(kKey, kValueTypeLong);
    bag.Remove(kKey, kValueTypeString);
    bag.Remove(kKey, kValueTypePtr);
    EXPECT_EQ(LongIn(bag, "other"), 9u);
}

TEST(Storage, ACopyHasItsOwnEntriesAndSharesThePointers) {
    T_Storage original;
    int object = 0;
    SetLong(original, kKey, 1);
    SetString(original, kKey, "text");
    SetPtr(original, kKey, &object);
    T_Storage copy = original;
    SetLong(original, kKey, 2);
    original.Remove(kKey, kValueTypeString);

    EXPECT_EQ(LongIn(copy, kKey), 1u);
    EXPECT_EQ(StringIn(copy, kKey), "text");
    void* pointer = nullptr;
    EXPECT_TRUE(GetPtr(copy, kKey, pointer));
    EXPECT_EQ(pointer, &object);
}

TEST(StorageHelpers, CopyCopiesOneValue) {
    T_Storage from;
    T_Storage to;
    int object = 0;
    SetLong(from, kKey, 1);
    SetString(from, kKey, "text");
    SetPtr(from, kKey, &object);
    EXPECT_TRUE(CopyLong(from, to, kKey));
    EXPECT_TRUE(CopyString(from, to, kKey));
    EXPECT_TRUE(CopyPtr(from, to, kKey));
    EXPECT_EQ(LongIn(to, kKey), 1u);
    EXPECT_EQ(StringIn(to, kKey), "text");
    void* pointer = nullptr;
    EXPECT_TRUE(GetPtr(to, kKey, pointer));
    EXPECT_EQ(pointer, &object);
}

TEST(StorageHelpers, CopyOfAnAbsentKeyLeavesTheTargetAlone) {
    T_Storage from;
    T_Storage to;
    SetLong(to, kKey, 1);
    SetString(to, kKey, "kept");
    SetPtr(to, kKey, &to);
    EXPECT_FALSE(CopyLong(from, to, kKey));
    EXPECT_FALSE(CopyString(from, to, kKey));
    EXPECT_FALSE(CopyPtr(from, to, kKey));
    EXPECT_EQ(LongIn(to, kKey), 1u);
    EXPECT_EQ(StringIn(to, kKey), "kept");
    void* pointer = nullptr;
    EXPECT_TRUE(GetPtr(to, kKey, pointer));
    EXPECT_EQ(pointer, &to);
}

TEST(StorageHelpers, CopyWithinOneBagChangesNothing) {
    T_Storage bag;
    SetString(bag, kKey, "a text that is much too long for the short form");
    EXPECT_TRUE(CopyString(bag, bag, kKey));
    EXPECT_EQ(StringIn(bag, kKey), "a text that is much too long for the short form");
}

// A bag of another kind: it counts what reaches it and refuses every Set.
class RefusingBag : public T_StorageInterface {
public:
    bool Set(std::string_view key, std::string_view typeName, const void*) override {
        calls += "Set " + std::string(key) + " " + std::string(typeName) + ";";
        return false;
    }
    bool Get(std::string_view key, std::string_view typeName, void*) override {
        calls += "Get " + std::string(key) + " " + std::string(typeName) + ";";
        return false;
    }
    void Remove(std::string_view, std::string_view) override { calls += "Remove;"; }

    std::string calls;
};

TEST(StorageHelpers, EachMakesOneVirtualCallWithItsTypeName) {
    RefusingBag bag;
    std::uint32_t number = 0;
    void* pointer = nullptr;
    std::string text;
    EXPECT_FALSE(SetLong(bag, "k", 1));
    EXPECT_FALSE(SetString(bag, "k", "text"));
    EXPECT_FALSE(SetPtr(bag, "k", nullptr));
    EXPECT_FALSE(GetLong(bag, "k", number));
    EXPECT_FALSE(GetString(bag, "k", text));
    EXPECT_FALSE(GetPtr(bag, "k", pointer));
    EXPECT_EQ(bag.calls, "Set k ValueType_Long;Set k ValueType_String;Set k ValueType_Ptr;"
                         "Get k ValueType_Long;Get k ValueType_String;Get k ValueType_Ptr;");
}

TEST(StorageHelpers, CopyReturnsTheResultOfTheTargetsSet) {
    T_Storage from;
    SetLong(from, kKey, 1);
    SetString(from, kKey, "text");
    SetPtr(from, kKey, nullptr);
    RefusingBag to;
    EXPECT_FALSE(CopyLong(from, to, kKey));
    EXPECT_FALSE(CopyString(from, to, kKey));
    EXPECT_FALSE(CopyPtr(from, to, kKey));
}

TEST(Storage, GettingAllocatesNothing) {
    T_Storage bag;
    SetLong(bag, kKey, 1);
    SetString(bag, kKey, "a text that is much too long for the short form");
    const std::size_t before = pavane_test::AllocationCount();
    std::uint32_t number = 0;
    const char* text = nullptr;
    EXPECT_TRUE(GetLong(bag, kKey, number));
    EXPECT_TRUE(bag.Get(kKey, kValueTypeString, &text));
    EXPECT_EQ(pavane_test::AllocationCount(), before);
}

TEST(Storage, OverwritingANumberReusesItsEntry) {
    T_Storage bag;
    SetLong(bag, kKey, 1);
    const std::size_t before = pavane_test::AllocationCount();
    SetLong(bag, kKey, 2);
    EXPECT_EQ(pavane_test::AllocationCount(), before);
}

TEST(Storage, EveryFailingAllocationThrowsAndLeavesAUsableBag) {
    const std::size_t failures = pavane_test::ForEveryFailingAllocation([] {
        T_Storage bag;
        try {
            SetLong(bag, "a key that is much too long for the short form", 1);
            SetString(bag, "another key that is much too long",
                      "a text that is much too long for the short form");
            SetPtr(bag, "a third key that is much too long", &bag);
            const T_Storage copy = bag;
        } catch (const std::bad_alloc&) {
            SetLong(bag, "k", 2);
            EXPECT_EQ(LongIn(bag, "k"), 2u);
        }
    });
    EXPECT_GE(failures, 14u) << "three nodes, three keys and a text, twice";
}

} // namespace
} // namespace brixen::pvn
