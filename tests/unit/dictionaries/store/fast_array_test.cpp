#include "dictionaries/store/fast_array.h"

#include "support/failing_allocator.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <new>
#include <optional>
#include <span>
#include <string>
#include <vector>

using namespace kestrel_private;

namespace {

// A block of a compiled file: areas, offsets and ready bucket lists.
class CompiledBlock {
public:
    explicit CompiledBlock(std::uint32_t firstId = 0) { block.firstId = firstId; }

    CompiledBlock& Entry(std::string_view key, std::string_view value) {
        return EntryInBucket(KeyBucket(key), key, value);
    }
    CompiledBlock& EntryInBucket(std::uint32_t bucket, std::string_view key, std::string_view value) {
        buckets.push_back(static_cast<std::uint16_t>(bucket));
        sizes.push_back(1);
        ids.push_back(block.entryCount);
        keys.Put(key);
        values.Put(value);
        ++block.entryCount;
        ++block.liveCount;
        return *this;
    }
    CompiledBlock& WithoutValues() {
        values.area.clear();
        return *this;
    }
    void AddTo(FastArray& entries) {
        std::size_t size = 0;
        for (const Texts* texts : {&keys, &values}) {
            size += texts->offsets.size() * 4 + texts->lengths.size() * 2 + texts->area.size();
        }
        size += buckets.size() * 2 + (sizes.size() + ids.size()) * 4;
        block.file = std::make_unique<std::uint8_t[]>(size);
        next = block.file.get();
        block.keys = Column(keys);
        block.values = Column(values);
        const BucketLists lists = {Numbers(buckets), Numbers(sizes), Numbers(ids)};
        entries.AddBlock(std::move(block), lists);
    }

private:
    struct Texts {
        std::vector<std::uint32_t> offsets;
        std::vector<std::uint16_t> lengths;
        std::string area;

        void Put(std::string_view text) {
            offsets.push_back(static_cast<std::uint32_t>(area.size()));
            lengths.push_back(static_cast<std::uint16_t>(text.size()));
            area += text;
        }
    };

    template <class Number>
    FileNumbers<Number> Numbers(const std::vector<Number>& numbers) {
        FileNumbers<Number> placed(next, numbers.size());
        for (std::size_t i = 0; i < numbers.size(); ++i) placed.Set(i, numbers[i]);
        next += numbers.size() * sizeof(Number);
        return placed;
    }
    TextColumn Column(const Texts& texts) {
        const auto offsets = Numbers(texts.offsets);
        const auto lengths = Numbers(texts.lengths);
        const std::span area(next, texts.area.size());
        next = std::copy(texts.area.begin(), texts.area.end(), next);
        return {offsets, lengths, area};
    }

    FastArrayBlock block;
    Texts keys, values;
    std::vector<std::uint16_t> buckets;
    std::vector<std::uint32_t> sizes, ids;
    std::uint8_t* next = nullptr;
};

std::string KeyNumber(int number) {
    std::string digits = std::to_string(number);
    digits.insert(0, 6 - digits.size(), '0');
    return "/app/pane_" + digits + "/section_03/title";
}

struct Entries {
    Reference<FastArray> array{new FastArray};

    std::uint32_t Add(std::string_view key, std::string_view value) {
        return array->Add(key, value, std::nullopt);
    }
    // Asks in both ways and expects the same answer.
    std::string ValueOf(std::string_view key) const {
        const auto id = array->Find(key);
        std::string byId = id ? std::string(array->Value(*id).Text()) : "absent";
        const auto value = array->FindValue(key);
        EXPECT_EQ(value ? value->Text() : "absent", byId) << key;
        return byId;
    }
    // Adds enough entries that the store keeps an index.
    void AddNumbered(int count) {
        for (int i = 0; i < count; ++i) Add(KeyNumber(i), "value");
        EXPECT_TRUE(array->IsIndexed());
    }
    std::string NoteOf(std::uint32_t id) const {
        const auto note = array->Note(id);
        return note ? std::string(note->Text()) : "no note";
    }
};

TEST(KeyBucket, SamplesEveryFifthOfTheKey) {
    EXPECT_EQ(KeyBucket(""), 0u);
    EXPECT_EQ(KeyBucket("a"), 97u);
    EXPECT_EQ(KeyBucket("ab"), (97u * 32 + 98) % 1021);
    EXPECT_EQ(KeyBucket("\xFF"), 255u);
    // Ten bytes: the bytes 0, 2, 4, 6 and 8.
    EXPECT_EQ(KeyBucket("a?b?c?d?e?"), KeyBucket("a!b!c!d!e!"));
    EXPECT_EQ(KeyBucket("abcde"), KeyBucket("a.b.c.d.e."));
}

TEST(FastArray, AssignsIdsInOrder) {
    Entries entries;
    EXPECT_EQ(entries.Add("/a", "1"), 0u);
    EXPECT_EQ(entries.Add("/b", "2"), 1u);
    EXPECT_EQ(entries.ValueOf("/a"), "1");
    EXPECT_EQ(entries.ValueOf("/b"), "2");
    EXPECT_EQ(entries.ValueOf("/c"), "absent");
    EXPECT_EQ(entries.array->TotalIds(), 2u);
    EXPECT_EQ(entries.array->LiveEntries(), 2u);
}

TEST(FastArray, DistinguishesKeysOfOneBucket) {
    Entries entries;
    entries.Add("a?b?c?d?e?", "1");
    entries.Add("a!b!c!d!e!", "2");
    EXPECT_EQ(entries.array->Bucket(KeyBucket("a?b?c?d?e?")).size(), 2u);
    EXPECT_EQ(entries.ValueOf("a?b?c?d?e?"), "1");
    EXPECT_EQ(entries.ValueOf("a!b!c!d!e!"), "2");
    EXPECT_EQ(entries.ValueOf("a.b.c.d.e."), "absent");
}

TEST(FastArray, ReplacesAValueOfAnyLength) {
    Entries entries;
    const std::uint32_t id = entries.Add("/a", "four");
    for (const std::string value : {"four", "FOUR", "two", "", "much longer", "short", "much longer still"}) {
        EXPECT_EQ(entries.Add("/a", value), id);
        EXPECT_EQ(entries.ValueOf("/a"), value);
    }
    EXPECT_EQ(entries.array->TotalIds(), 1u);
    EXPECT_EQ(entries.array->LiveEntries(), 1u);
}

TEST(FastArray, HasNoValueForAnUnknownIdOrAnEmptyKey) {
    Entries entries;
    EXPECT_EQ(entries.array->Value(0).length, 0u);
    EXPECT_EQ(entries.array->Value(entries.Add("", "x")).length, 0u);
    EXPECT_TRUE(entries.array->Find("").has_value());
    EXPECT_FALSE(entries.array->Note(7).has_value());
}

TEST(FastArray, DoesNotTakeTheEmptyKeyForAnotherOfItsBucket) {
    Entries entries;
    entries.Add("", "x");
    ASSERT_EQ(KeyBucket("<z"), KeyBucket(""));
    EXPECT_EQ(entries.ValueOf("<z"), "absent");
    EXPECT_EQ(entries.Add("<z", "y"), 1u);
    EXPECT_EQ(entries.ValueOf("<z"), "y");
}

TEST(FastArray, BeginsABlockForEveryHundredEntries) {
    Entries entries;
    for (int i = 0; i < 100; ++i) entries.Add(KeyNumber(i), "x");
    EXPECT_EQ(entries.array->BlockCount(), 1u);
    entries.Add(KeyNumber(100), "x");
    EXPECT_EQ(entries.array->BlockCount(), 2u);
}

TEST(FastArray, FindsEveryEntryBeforeAndAfterItIsIndexed) {
    Entries entries;
    for (int i = 0; i < 3000; ++i) {
        ASSERT_EQ(entries.Add(KeyNumber(i), std::to_string(i)), static_cast<std::uint32_t>(i));
    }
    EXPECT_TRUE(entries.array->IsIndexed());
    for (int i = 0; i < 3000; ++i) ASSERT_EQ(entries.ValueOf(KeyNumber(i)), std::to_string(i));
    EXPECT_EQ(entries.ValueOf(KeyNumber(3000)), "absent");
    for (int i = 0; i < 3000; i += 7) entries.Add(KeyNumber(i), "new");
    for (int i = 0; i < 3000; ++i)
        ASSERT_EQ(entries.ValueOf(KeyNumber(i)), i % 7 == 0 ? "new" : std::to_string(i));
    EXPECT_EQ(entries.array->TotalIds(), 3000u);
}

TEST(FastArray, ReturnsReplacedValuesOfEveryLengthFromItsIndex) {
    Entries entries;
    entries.AddNumbered(3000);
    for (std::size_t length = 0; length < 20; ++length) {
        const std::string value(length, static_cast<char>('a' + length));
        entries.Add(KeyNumber(17), value);
        ASSERT_TRUE(entries.array->IsIndexed());
        ASSERT_EQ(entries.ValueOf(KeyNumber(17)), value);
        entries.Add(KeyNumber(18), std::string(19 - length, 'x'));
        ASSERT_EQ(entries.ValueOf(KeyNumber(18)), std::string(19 - length, 'x'));
    }
    EXPECT_EQ(entries.ValueOf(KeyNumber(16)), "value");
    EXPECT_EQ(entries.ValueOf(KeyNumber(19)), "value");
}

TEST(FastArray, FindsNoValueOfTheEmptyKeyWithAndWithoutAnIndex) {
    Entries entries;
    entries.Add("", "dropped");
    EXPECT_EQ(entries.ValueOf(""), "");
    entries.AddNumbered(3000);
    EXPECT_EQ(entries.ValueOf(""), "");
}

TEST(FastArray, NeedsNoIndexForAFewLookups) {
    Entries entries;
    for (int i = 0; i < 5; ++i) entries.Add(KeyNumber(i), "x");
    entries.ValueOf(KeyNumber(3));
    EXPECT_FALSE(entries.array->IsIndexed());
}

TEST(FastArray, KeepsNotes) {
    Entries entries;
    const std::uint32_t first = entries.array->Add("/a", "1", "note a");
    const std::uint32_t second = entries.array->Add("/b", "2", std::nullopt);
    const std::uint32_t third = entries.array->Add("/c", "3", "note c");
    EXPECT_EQ(entries.NoteOf(first), "note a");
    EXPECT_EQ(entries.NoteOf(second), "no note");
    EXPECT_EQ(entries.NoteOf(third), "note c");
}

TEST(FastArray, ReplacesANoteAndDropsOneForAnEntryWithoutANote) {
    Entries entries;
    const std::uint32_t first = entries.array->Add("/a", "1", "note a");
    const std::uint32_t second = entries.array->Add("/b", "2", std::nullopt);
    entries.array->Add("/a", "1", "a longer note");
    entries.array->Add("/b", "2", "dropped");
    EXPECT_EQ(entries.NoteOf(first), "a longer note");
    EXPECT_EQ(entries.NoteOf(second), "no note");
    entries.array->Add("/a", "1", std::nullopt);
    EXPECT_EQ(entries.NoteOf(first), "a longer note");
}

TEST(FastArray, StoresTheFirstNoteOfABlockWithAReplacedValue) {
    Entries entries;
    const std::uint32_t id = entries.array->Add("/a", "1", std::nullopt);
    entries.array->Add("/a", "2", "note");
    EXPECT_EQ(entries.NoteOf(id), "note");
}

TEST(FastArrayBlock, IsFoundByItsOwnBucketLists) {
    Entries entries;
    CompiledBlock().Entry("/a", "1").Entry("/b", "2").AddTo(*entries.array);
    EXPECT_EQ(entries.ValueOf("/a"), "1");
    EXPECT_EQ(entries.ValueOf("/b"), "2");
    EXPECT_EQ(entries.array->TotalIds(), 2u);
}

TEST(FastArrayBlock, OverlaysOlderEntriesOfTheSameKey) {
    Entries entries;
    CompiledBlock().Entry("/a", "1").Entry("/b", "2").AddTo(*entries.array);
    CompiledBlock().Entry("/b", "new and longer").Entry("/c", "3").AddTo(*entries.array);
    EXPECT_EQ(entries.ValueOf("/a"), "1");
    EXPECT_EQ(entries.ValueOf("/b"), "new and longer");
    EXPECT_EQ(entries.ValueOf("/c"), "3");
    EXPECT_EQ(entries.array->Find("/b"), 1u);
    EXPECT_EQ(entries.array->Find("/c"), 3u);
    EXPECT_EQ(entries.array->TotalIds(), 4u);
    EXPECT_EQ(entries.array->LiveEntries(), 3u);
    EXPECT_EQ(entries.array->Value(2).length, 0u);
}

// An overlay of old keys alone changes nothing in the index but the values.
TEST(FastArrayBlock, ReplacesValuesInAnIndex) {
    Entries entries;
    entries.AddNumbered(3000);

    CompiledBlock().Entry(KeyNumber(4), "longer value").Entry(KeyNumber(5), "v").AddTo(*entries.array);
    EXPECT_TRUE(entries.array->IsIndexed());
    EXPECT_EQ(entries.ValueOf(KeyNumber(4)), "longer value");
    EXPECT_EQ(entries.ValueOf(KeyNumber(5)), "v");
    EXPECT_EQ(entries.ValueOf(KeyNumber(6)), "value");
}

TEST(FastArrayBlock, IsRefusedAtAPlaceThatItWasNotMadeFor) {
    Entries entries;
    CompiledBlock().Entry("/a", "1").AddTo(*entries.array);
    CompiledBlock(2).Entry("/a", "2").AddTo(*entries.array);
    EXPECT_EQ(entries.ValueOf("/a"), "1");
    EXPECT_EQ(entries.array->TotalIds(), 1u);
}

TEST(FastArrayBlock, IsNotCheckedForRepeatsAtThePlaceItWasMadeFor) {
    Entries entries;
    CompiledBlock().Entry("/a", "1").AddTo(*entries.array);
    CompiledBlock(1).Entry("/a", "2").Entry("/b", "3").AddTo(*entries.array);
    EXPECT_EQ(entries.ValueOf("/a"), "1");
    EXPECT_EQ(entries.ValueOf("/b"), "3");
    EXPECT_EQ(entries.array->LiveEntries(), 3u);
}

TEST(FastArrayBlock, IsDroppedWithoutLiveEntries) {
    Entries entries;
    CompiledBlock().AddTo(*entries.array);
    EXPECT_EQ(entries.array->BlockCount(), 0u);
}

TEST(FastArrayBlock, EndsThePartFilledBlockBeforeIt) {
    Entries entries;
    entries.Add("/a", "1");
    CompiledBlock().Entry("/b", "2").AddTo(*entries.array);
    EXPECT_EQ(entries.Add("/c", "3"), 2u);
    EXPECT_EQ(entries.array->BlockCount(), 3u);
    EXPECT_EQ(entries.ValueOf("/a"), "1");
    EXPECT_EQ(entries.ValueOf("/b"), "2");
    EXPECT_EQ(entries.ValueOf("/c"), "3");
}

TEST(FastArrayBlock, HasAbsentEntriesWhereItsArraysAreCut) {
    Entries entries;
    CompiledBlock().Entry("/a", "value").WithoutValues().AddTo(*entries.array);
    EXPECT_EQ(entries.ValueOf("/a"), "");
    entries.Add("/a", "mended");
    EXPECT_EQ(entries.ValueOf("/a"), "mended");
}

// A scan of the bucket and the index must agree, whichever bucket a file lists a key in.
TEST(FastArrayBlock, AnswersAlikeWithAndWithoutAnIndexForAKeyInAForeignBucket) {
    Entries entries;
    CompiledBlock()
        .EntryInBucket((KeyBucket("/hidden") + 1) % kBucketCount, "/hidden", "x")
        .AddTo(*entries.array);
    EXPECT_EQ(entries.ValueOf("/hidden"), "absent");
    for (int i = 0; i < 2000; ++i) entries.Add(KeyNumber(i), "y");
    EXPECT_TRUE(entries.array->IsIndexed());
    EXPECT_EQ(entries.ValueOf("/hidden"), "absent");
    for (int i = 0; i < 2000; ++i) ASSERT_EQ(entries.ValueOf(KeyNumber(i)), "y");
}

TEST(FastArray, LeaksNothingWhenMemoryRunsOut) {
    const std::size_t failures = pavane_test::ForEveryFailingAllocation([] {
        try {
            Entries entries;
            for (int i = 0; i < 110; ++i) entries.array->Add(KeyNumber(i), "value", "note");
        } catch (const std::bad_alloc&) {
            // The caller checks that nothing is leaked.
        }
    });
    EXPECT_GT(failures, 300u);
}

// The first note of a block makes the arrays of its notes.
TEST(FastArray, HasNoNoteWhenMemoryRunsOutAtTheFirstNoteOfABlock) {
    bool hasFailed = true;
    for (std::size_t n = 1; hasFailed; ++n) {
        Entries entries;
        entries.Add("/a", "value");
        entries.Add("/b", "value");
        {
            const pavane_test::FailNthAllocation failure(n);
            try {
                entries.array->Add("/b", "other", "the first note");
            } catch (const std::bad_alloc&) {
                EXPECT_TRUE(failure.HasFailed());
            }
            hasFailed = failure.HasFailed();
        }
        EXPECT_EQ(entries.ValueOf("/b"), "other") << "a value is replaced before its note";
        EXPECT_EQ(entries.NoteOf(0), "no note");
        EXPECT_EQ(entries.NoteOf(1), hasFailed ? "no note" : "the first note") << n;
        entries.array->Add("/b", "other", "a second note");
        EXPECT_EQ(entries.NoteOf(1), "a second note") << n;
        EXPECT_TRUE(!hasFailed || n < 10);
        if (!hasFailed) {
            EXPECT_GT(n, 3u);
        }
    }
}

TEST(FastArray, AddsNoEntryWhenMemoryRunsOutAtItsNote) {
    for (std::size_t n = 1; n < 20; ++n) {
        Entries entries;
        entries.Add("/a", "value");
        bool isAdded = true;
        try {
            const pavane_test::FailNthAllocation failure(n);
            entries.array->Add("/b", "value", "the first note");
        } catch (const std::bad_alloc&) {
            isAdded = false;
        }
        EXPECT_EQ(entries.array->TotalIds(), isAdded ? 2u : 1u);
        EXPECT_EQ(entries.NoteOf(1), isAdded ? "the first note" : "no note") << n;
        EXPECT_EQ(entries.array->Add("/b", "value", "another"), 1u);
        EXPECT_EQ(entries.NoteOf(0), "no note");
        EXPECT_EQ(entries.NoteOf(1), "another");
        EXPECT_EQ(entries.array->Add("/c", "value", "third"), 2u);
        EXPECT_EQ(entries.NoteOf(2), "third") << n;
    }
}

TEST(FastArray, KeepsItsEntriesWhenMemoryRunsOut) {
    for (std::size_t n = 1; n < 40; ++n) {
        Entries entries;
        for (int i = 0; i < 90; ++i) entries.Add(KeyNumber(i), "value");
        int added = 90;
        try {
            const pavane_test::FailNthAllocation failure(n);
            for (; added < 110; ++added) entries.Add(KeyNumber(added), "value");
        } catch (const std::bad_alloc&) {
            EXPECT_EQ(entries.array->TotalIds(), static_cast<std::uint32_t>(added));
        }
        entries.Add(KeyNumber(added), "value");
        for (int i = 0; i <= added; ++i) ASSERT_EQ(entries.ValueOf(KeyNumber(i)), "value") << n;
    }
}

} // namespace
