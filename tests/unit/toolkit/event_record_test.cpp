#include "toolkit/event_record.h"

#include "toolkit/key_hash.h"
#include "view/scope/expression_scope.h"

#include <limits>
#include <memory>
#include <stdexcept>
#include <string>

#include <gtest/gtest.h>

namespace brixen::zeve {
namespace {

std::string ErrorOfReading(const EventRecord& record, std::string_view key) {
    try {
        (void)record.Read(key);
    } catch (const std::logic_error& error) {
        return error.what();
    }
    return "";
}

TEST(KeyHash, IsTheStandardCrc32) {
    EXPECT_EQ(Crc32(""), 0u);
    EXPECT_EQ(Crc32("123456789"), 0xCBF43926u);
    EXPECT_EQ(KeyBucket("123456789"), 0xCBF43926u % 127);
}

TEST(EventRecord, ReturnsWhatWasStored) {
    EventRecord record;
    record.Store(kKeyWparam, 42);
    record.Store(kKeyLparam, std::numeric_limits<std::int64_t>::min());
    EXPECT_EQ(record.Read(kKeyWparam), 42);
    EXPECT_EQ(record.Read(kKeyLparam), std::numeric_limits<std::int64_t>::min());
}

TEST(EventRecord, KeepsTheLastValueOfAKey) {
    EventRecord record;
    record.Store(kKeySetValue, 1);
    record.Store(kKeySetValue, 2);
    EXPECT_EQ(record.Read(kKeySetValue), 2);
}

TEST(EventRecord, ThrowsForAnAbsentKey) {
    EventRecord record;
    EXPECT_EQ(ErrorOfReading(record, kKeyWindow), "hash table index not found");
    record.Store(kKeyWparam, 1);
    EXPECT_EQ(ErrorOfReading(record, kKeyWindow), "hash table index not found");
}

TEST(EventRecord, HasAKeyOnceItIsStored) {
    EventRecord record;
    EXPECT_FALSE(record.Has(kKeyControl));
    record.Store(kKeyControl, 0);
    EXPECT_TRUE(record.Has(kKeyControl));
}

TEST(EventRecord, KeepsKeysOfOneBucketApart) {
    EventRecord record;
    // More keys than buckets, so some share one.
    for (int i = 0; i < 500; ++i) record.Store("key" + std::to_string(i), i);
    for (int i = 0; i < 500; ++i) EXPECT_EQ(record.Read("key" + std::to_string(i)), i);
    EXPECT_FALSE(record.Has("key500"));
}

TEST(EventRecord, StoresPointersAtFullWidth) {
    EventRecord record;
    int object = 0;
    record.StorePointer(kKeyScope, &object);
    EXPECT_EQ(record.ReadPointer<int*>(kKeyScope), &object);
    const auto high = reinterpret_cast<const void*>(std::uintptr_t(0xFEDCBA9876543210));
    record.StorePointer(kKeyScope, high);
    EXPECT_EQ(record.ReadPointer<const void*>(kKeyScope), high);
}

class ReadingARecord : public ::testing::Test {
protected:
    void UseScope() { record.StorePointer(kKeyScope, &scope); }

    EventRecord record;
    CExpressionScope scope;
};

TEST_F(ReadingARecord, UsesTheRecordsEntryWithoutAScope) {
    record.StorePointer(kKeySetValue, "text");
    EXPECT_EQ(ReadText(record, kKeySetValue), "text");
    EXPECT_EQ(ReadTextOrFourCharCode(record, kKeySetValue), "text");
    record.Store(kKeySetValue, 7);
    EXPECT_EQ(ReadNumber(record, kKeySetValue), 7);
}

TEST_F(ReadingARecord, TreatsANullScopeAsNone) {
    record.StorePointer(kKeyScope, nullptr);
    record.Store(kKeySetValue, 7);
    EXPECT_EQ(ReadNumber(record, kKeySetValue), 7);
}

TEST_F(ReadingARecord, PrefersTheScopesValue) {
    UseScope();
    scope.DefineNumber(kKeySetValue, 3);
    record.Store(kKeySetValue, 7);
    EXPECT_EQ(ReadNumber(record, kKeySetValue), 3);
    scope.DefineString(kKeySetValue, "of the scope");
    EXPECT_EQ(ReadText(record, kKeySetValue), "of the scope");
    EXPECT_EQ(ReadTextOrFourCharCode(record, kKeySetValue), "of the scope");
}

TEST_F(ReadingARecord, TreatsANullTextAsEmpty) {
    record.StorePointer(kKeySetValue, nullptr);
    EXPECT_EQ(ReadText(record, kKeySetValue), "");
    EXPECT_EQ(ReadTextOrFourCharCode(record, kKeySetValue), "");
}

TEST_F(ReadingARecord, UsesTheRecordsEntryIfTheScopeHasNone) {
    UseScope();
    record.StorePointer(kKeySetValue, "of the record");
    EXPECT_EQ(ReadText(record, kKeySetValue), "of the record");
    EXPECT_EQ(ReadTextOrFourCharCode(record, kKeySetValue), "of the record");
    record.Store(kKeySetValue, 8);
    EXPECT_EQ(ReadNumber(record, kKeySetValue), 8);
}

TEST_F(ReadingARecord, ThrowsIfNeitherHasTheKey) {
    UseScope();
    EXPECT_THROW((void)ReadText(record, kKeySetValue), std::logic_error);
    EXPECT_THROW((void)ReadNumber(record, kKeySetValue), std::logic_error);
    EXPECT_THROW((void)ReadTextOrFourCharCode(record, kKeySetValue), std::logic_error);
}

TEST_F(ReadingARecord, ReadsACodeOfLettersAndDigitsAsText) {
    UseScope();
    scope.DefineNumber(kKeySetValue, 0x4F4B3432); // OK42
    EXPECT_EQ(ReadTextOrFourCharCode(record, kKeySetValue), "OK42");
    scope.DefineNumber(kKeySetValue, 0x617A415A); // azAZ
    EXPECT_EQ(ReadTextOrFourCharCode(record, kKeySetValue), "azAZ");
}

TEST_F(ReadingARecord, ReadsATextOfFourCharactersAsItself) {
    UseScope();
    scope.DefineString(kKeySetValue, "ABCD");
    EXPECT_EQ(ReadTextOrFourCharCode(record, kKeySetValue), "ABCD");
}

TEST_F(ReadingARecord, ReadsAnyOtherNumberAsAnEmptyText) {
    UseScope();
    for (const std::int64_t number : {std::int64_t(5), std::int64_t(0x4F4B2D32), std::int64_t(0x4F4BFF32)}) {
        scope.DefineNumber(kKeySetValue, number);
        EXPECT_EQ(ReadTextOrFourCharCode(record, kKeySetValue), "") << number;
    }
}

TEST_F(ReadingARecord, ReadsATextOfFourOtherBytesAsItself) {
    UseScope();
    scope.DefineString(kKeySetValue, "a-b!");
    EXPECT_EQ(ReadTextOrFourCharCode(record, kKeySetValue), "a-b!");
}

TEST(StoreNewText, StoresACopyThatTheReaderFrees) {
    EventRecord record;
    std::string text = "Berlin";
    StoreNewText(record, text);
    text = "Zermatt";
    const std::unique_ptr<char[]> stored(record.ReadPointer<char*>(kKeyValueString));
    EXPECT_STREQ(stored.get(), "Berlin");
}

TEST(StoreNewText, StoresNoEmptyText) {
    EventRecord record;
    StoreNewText(record, "");
    EXPECT_FALSE(record.Has(kKeyValueString));
}

TEST(StoreNewText, WithRoomStoresTheTextAndZeros) {
    EventRecord record;
    StoreNewTextWithRoom(record, "abc", 8);
    const std::unique_ptr<char[]> stored(record.ReadPointer<char*>(kKeyValueString));
    EXPECT_EQ(std::string_view(stored.get(), 8), std::string_view("abc\0\0\0\0\0", 8));
    StoreNewTextWithRoom(record, "longer than that", 8);
    const std::unique_ptr<char[]> longer(record.ReadPointer<char*>(kKeyValueString));
    EXPECT_STREQ(longer.get(), "longer than that");
    StoreNewTextWithRoom(record, "", 1);
    const std::unique_ptr<char[]> empty(record.ReadPointer<char*>(kKeyValueString));
    EXPECT_STREQ(empty.get(), "");
}

} // namespace
} // namespace brixen::zeve
