// The pool of texts and the memory that it counts.
#include "view/scope/scope_string_pool.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace brixen::zeve {
namespace {

TEST(ScopeStringPool, TakesABlockForEach3900Bytes) {
    ScopeStringPool pool;
    EXPECT_EQ(pool.BlockCount(), 0u);
    EXPECT_STREQ(pool.Store("").data(), "");
    EXPECT_EQ(pool.BlockCount(), 1u);
    pool.Store(std::string(3897, 'x')); // with the NUL, all but one of the bytes
    EXPECT_EQ(pool.BlockCount(), 1u);
    pool.Store("");
    EXPECT_EQ(pool.BlockCount(), 1u);
    pool.Store("");
    EXPECT_EQ(pool.BlockCount(), 2u);
    EXPECT_EQ(pool.Store(std::string(5000, 'y')), std::string(5000, 'y'));
    EXPECT_EQ(pool.BlockCount(), 3u);
}

TEST(ScopeStringPool, KeepsTextsInPlaceAndTerminated) {
    ScopeStringPool pool;
    const std::string_view first = pool.Store("first");
    for (int n = 0; n < 1000; ++n) pool.Store("filler text");
    EXPECT_STREQ(first.data(), "first");
}

TEST(ScopeStringPool, KnowsItsTexts) {
    ScopeStringPool pool, other;
    EXPECT_FALSE(pool.Holds("literal"));
    std::vector<const char*> texts;
    for (int n = 0; n < 300; ++n) {
        texts.push_back(pool.Store(std::string(static_cast<std::size_t>(n * 37), 'x')).data());
        EXPECT_FALSE(pool.Holds(other.Store("another pool's").data()));
    }
    for (const char* text : texts) EXPECT_TRUE(pool.Holds(text));
    EXPECT_TRUE(pool.Holds(texts.back() + 299 * 37)) << "the NUL";
    EXPECT_FALSE(pool.Holds("literal"));
    EXPECT_FALSE(pool.Holds(nullptr));
}

TEST(ScopeStringPool, HoldsNothingAfterTheEndOfABlock) {
    ScopeStringPool pool;
    const char* const giant = pool.Store(std::string(5000, 'x')).data();
    EXPECT_TRUE(pool.Holds(giant));
    EXPECT_TRUE(pool.Holds(giant + 5000));
    EXPECT_FALSE(pool.Holds(giant + 5001));
    EXPECT_FALSE(pool.Holds(giant - 1));
}

TEST(ScopeStringPool, CountsItsBlocks) {
    ScopeStringPool pool;
    EXPECT_EQ(pool.Memory().Held(), 0u);
    pool.Store("text");
    const std::size_t one = pool.Memory().Held();
    EXPECT_GE(one, ScopeStringPool::kMinimumBlockSize);
    pool.Store(std::string(10000, 'x'));
    EXPECT_EQ(pool.Memory().Held(), one + 10001);
}

TEST(ScopeStringPool, ATextThatPassesTheLimitIsRefused) {
    ScopeStringPool pool;
    pool.Store("text");
    pool.Memory().SetLimit(pool.Memory().Held() + 5000);
    EXPECT_THROW(pool.Store(std::string(5000, 'x')), ScopeMemoryExhausted);
    EXPECT_EQ(pool.BlockCount(), 1u);
    EXPECT_EQ(pool.Store(std::string(4999, 'x')).size(), 4999u);
    EXPECT_EQ(pool.Memory().Held(), pool.Memory().Limit());
    EXPECT_THROW(pool.Memory().Charge(1), ScopeMemoryExhausted);
}

TEST(ScopeMemory, CountsWhatItHandsOut) {
    ScopeMemory memory;
    EXPECT_EQ(memory.Limit(), ScopeMemory::kUnlimited);
    void* const plain = memory.allocate(100);
    void* const aligned = memory.allocate(256, 128);
    EXPECT_EQ(reinterpret_cast<std::uintptr_t>(aligned) % 128, 0u);
    EXPECT_EQ(memory.Held(), 356u);
    memory.Charge(44);
    memory.deallocate(plain, 100);
    EXPECT_EQ(memory.Held(), 300u);
    memory.deallocate(aligned, 256, 128);
    EXPECT_EQ(memory.Held(), 44u);
}

TEST(ScopeMemory, RefusesWhatWouldPassItsLimit) {
    ScopeMemory memory;
    memory.SetLimit(100);
    memory.Charge(60);
    EXPECT_THROW(memory.Charge(41), ScopeMemoryExhausted);
    EXPECT_THROW(static_cast<void>(memory.allocate(41)), ScopeMemoryExhausted);
    EXPECT_EQ(memory.Held(), 60u);
    memory.Charge(40);
    memory.SetLimit(50);
    EXPECT_EQ(memory.Held(), 100u) << "what is held stays";
    EXPECT_THROW(memory.Charge(1), ScopeMemoryExhausted);
}

TEST(ScopeMemory, EqualsOnlyItself) {
    const ScopeMemory memory, other;
    EXPECT_TRUE(memory.is_equal(memory));
    EXPECT_FALSE(memory.is_equal(other));
}

} // namespace
} // namespace brixen::zeve
